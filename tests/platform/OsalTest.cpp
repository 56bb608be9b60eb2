// The platform-support stand-in: the behaviours the library builds on.
#include "Support.hpp"

#include <osal/event.hpp>
#include <osal/localization.hpp>
#include <osal/strings.hpp>

#include <fstream>

namespace {

using Osal = test::PlatformTest;
using Pieces = std::vector<std::string>;

TEST_F(Osal, SplitDropsEmptyPieces_AndTrimOnlyTheEnds) {
    const std::pair<std::string, Pieces> cases[] = {{"", {}},
                                                    {"   ", {}},
                                                    {"one", {"one"}},
                                                    {" a  b ", {"a", "b"}},
                                                    {"a,b;c", {"a,b;c"}},
                                                    {"line\nbreak here", {"line\nbreak", "here"}}};
    for (const auto& [text, pieces] : cases)
        EXPECT_EQ(splitOnDelimeters(text, " "), pieces) << '"' << text << '"';
    EXPECT_EQ(splitOnDelimeters("a,b;c", ",;"), (Pieces{"a", "b", "c"}));
    // Trimming removes only the given characters, and only at the ends.
    EXPECT_EQ(trim("  a b  ", " "), "a b");
    EXPECT_EQ(trim("\t a \n"), "a");
    EXPECT_EQ(trim("\t a \n", " "), "\t a \n");
    EXPECT_EQ(trim("   ", " "), "");
}

TEST_F(Osal, Localization_UnknownIdThrows_TableLoadsFromFile) {
    osal::host::clearStrings();
    EXPECT_THROW(Localization::getLocalizedString(1), LocalizationException);
    const std::string path = test::tempPath("strings.txt");
    {
        std::ofstream out(path);
        out << "# comment\n1=Sale\n2 = Refund=ok\nbad line\nx=not a number\n";
    }
    ASSERT_TRUE(osal::host::loadStrings(path));
    EXPECT_EQ(Localization::getLocalizedString(1), "Sale");
    EXPECT_EQ(Localization::getLocalizedString(2), " Refund=ok");
    EXPECT_FALSE(osal::host::loadStrings("no/such/file"));
    EXPECT_EQ(Localization::getLocalizedString(1), "Sale");
}

// A thread woken by a signal is at work on it until it waits for someone again, and waiting for
// the others to settle is such a wait: a settle wait from any thread ends after it.
TEST_F(Osal, AThreadWaitingForTheOthersIsDoneWithTheSignalThatWokeIt) {
    const auto settledElsewhere = [](std::chrono::milliseconds limit, bool settled = false) {
        std::thread([&] { settled = osal::host::waitUntilSettled(limit); }).join();
        return settled;
    };
    AutomaticResetEvent<> reply;
    std::mutex mutex;
    std::unique_lock<std::mutex> lock(mutex);
    std::thread([&] { reply.notify_one(); }).join(); // from a thread at rest: a request
    reply.wait(lock);
    EXPECT_FALSE(settledElsewhere(std::chrono::milliseconds(50))) << "at work on the request";
    EXPECT_TRUE(osal::host::waitUntilSettled(std::chrono::seconds(5)));
    EXPECT_TRUE(settledElsewhere(std::chrono::seconds(5))) << osal::host::unsettled();
}

} // namespace
