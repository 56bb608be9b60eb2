#include "utl/thread.hpp"
#include "utl/thread_pool.hpp"

#include <osal/log.hpp>

#include <boost/exception/exception.hpp>

#include <exception>

namespace utl {

void thread::run(std::function<void()> body) {
    try {
        body();
    } catch (const boost::exception& e) {
        LogException("utl/thread", __LINE__, e);
    } catch (const std::exception& e) {
        LogException("utl/thread", __LINE__, e);
    } catch (...) {
        LogException("utl/thread", __LINE__);
    }
}

void thread::abandoned() {
    try {
        LOG(LogLevel::Error) << "thread destroyed without joining or detaching";
    } catch (const std::exception& e) {
        LogException("utl/thread", __LINE__, e);
    } catch (...) {
        LogException("utl/thread", __LINE__);
    }
    std::terminate();
}

thread& thread::operator=(thread&& other) noexcept {
    if (joinable())
        abandoned();
    thread_ = std::move(other.thread_);
    return *this;
}

thread::~thread() {
    if (joinable())
        abandoned();
}

ThreadPoolCleaner::~ThreadPoolCleaner() {
    try {
        for (auto& t : threads_)
            if (t.joinable())
                t.join();
    } catch (...) {
        std::terminate();
    }
}

thread_pool<default_thread_pool_policy>::thread_pool() : done(false), joiner(threads) {
    try {
        for (unsigned i = 0; i < std::thread::hardware_concurrency(); ++i)
            threads.emplace_back(std::ref(*this));
    } catch (...) {
        done = true; // the joiner, destroyed as the constructor unwinds, joins the started workers
        throw;
    }
}

thread_pool<default_thread_pool_policy>::~thread_pool() {
    done = true;
}

void thread_pool<default_thread_pool_policy>::submit(std::function<void()> task) {
    std::lock_guard<std::mutex> lock(queueMutex);
    tasks.push_back(std::move(task));
}

void thread_pool<default_thread_pool_policy>::operator()() {
    while (!done) {
        std::function<void()> task;
        bool taken = false;
        {
            std::lock_guard<std::mutex> lock(queueMutex);
            if (!tasks.empty()) {
                task = std::move(tasks.front());
                tasks.pop_front();
                taken = true;
            }
        }
        if (taken)
            task();
    }
}

} // namespace utl
