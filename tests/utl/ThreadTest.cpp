#include "Support.hpp"

#include "utl/thread.hpp"
#include "utl/thread_pool.hpp"

#include <boost/exception/exception.hpp>

namespace {

using Thread = test::PlatformTest;

TEST_F(Thread, EscapingExceptionsAreLogged_AndTheThreadJoins_BoostsHandlerFirst) {
    struct BoostError : boost::exception {};
    // Both a Boost and a standard exception: the Boost handler, tried first, must take it.
    struct Both : std::runtime_error, boost::exception {
        Both() : std::runtime_error("both kinds") {}
    };
    const auto reportOf = [](std::function<void()> body) {
        osal::host::clearExceptionReports();
        utl::thread t(std::move(body));
        t.join();
        const auto reports = osal::host::exceptionReports();
        EXPECT_EQ(reports.size(), 1u);
        EXPECT_EQ(reports.empty() ? "" : reports[0].source, "utl/thread");
        return reports.empty() ? osal::host::ExceptionReport{} : reports[0];
    };
    const auto standard = reportOf([] { throw std::runtime_error("disk full"); });
    const auto boost = reportOf([] { throw BoostError(); });
    const auto both = reportOf([] { throw Both(); });
    const auto other = reportOf([] { throw 42; });
    const auto empty = reportOf(std::function<void()>()); // a bad function call, handled alike
    EXPECT_EQ(standard.what, "disk full");
    EXPECT_NE(boost.what.find("BoostError"), std::string::npos);
    EXPECT_EQ(both.line, boost.line);
    EXPECT_NE(both.line, standard.line);
    EXPECT_NE(both.what.find("both kinds"), std::string::npos); // Boost's diagnostic, what() included
    EXPECT_EQ(other.what, "");
    EXPECT_EQ(empty.what, "bad_function_call");
    EXPECT_EQ(empty.line, standard.line);
}

// A joinable thread destroyed ends the process, logging why at error level; above it nothing is
// written before the runtime's own words.
TEST(ThreadDeathTest, DestroyingAJoinableThreadLogsAndTerminates) {
    for (auto [level, output] : {std::pair(LogLevel::Error, "thread destroyed without joining or detaching"),
                                 std::pair(LogLevel::Fatal, "^terminate called")}) {
        EXPECT_DEATH(
            {
                GetGlobalLogConfig().setLevel(level);
                utl::thread t([] { std::this_thread::sleep_for(std::chrono::seconds(1)); });
            },
            output);
    }
    EXPECT_DEATH( // and so does one replaced by another
        {
            GetGlobalLogConfig().setLevel(LogLevel::Error);
            utl::thread t([] { std::this_thread::sleep_for(std::chrono::seconds(1)); });
            t = utl::thread([] {});
        },
        "thread destroyed without joining or detaching");
}

using Pool = test::PlatformTest;

TEST_F(Pool, RunsSubmittedWork_OnAWorkerPerHardwareThread_AThrowingTaskIsLogged) {
    utl::thread_pool<utl::default_thread_pool_policy> pool;
    EXPECT_EQ(pool.workerCount(), std::thread::hardware_concurrency());
    std::atomic<int> done{0};
    for (int i = 0; i < 100; ++i)
        pool.submit([&] { ++done; });
    // Tasks may queue tasks: the queue lock is not held while one runs.
    pool.submit([&] { pool.submit([&] { done += 1000; }); });
    EXPECT_TRUE(test::eventually([&] { return done.load() == 1100; }));
    pool.submit([] { throw std::runtime_error("bad task"); }); // ends its worker, and is logged
    EXPECT_TRUE(test::eventually([] { return !osal::host::exceptionReports().empty(); }));
    EXPECT_EQ(osal::host::exceptionReports()[0].what, "bad task");
}

TEST_F(Pool, DestructionFinishesTasksInHand_AndDropsQueuedOnes) {
    std::atomic<int> started{0}, queuedRan{0};
    auto pool = std::make_unique<utl::thread_pool<utl::default_thread_pool_policy>>();
    const auto workers = pool->workerCount();
    auto* raw = pool.get();
    // Occupy every worker until destruction has begun, then queue more.
    for (size_t i = 0; i < workers; ++i)
        pool->submit([&, raw] {
            ++started;
            while (!raw->stopping())
                std::this_thread::yield();
        });
    ASSERT_TRUE(test::eventually([&] { return size_t(started.load()) == workers; }));
    for (int i = 0; i < 10; ++i)
        pool->submit([&] { ++queuedRan; });
    pool.reset();
    EXPECT_EQ(queuedRan.load(), 0);
}

} // namespace
