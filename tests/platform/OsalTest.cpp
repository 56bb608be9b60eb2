// The platform-support stand-in: the behaviours the library builds on.
#include "Support.hpp"

#include <osal/input.hpp>
#include <osal/localization.hpp>
#include <osal/strings.hpp>

#include <boost/exception/exception.hpp>

#include <fstream>

namespace {

using Osal = test::PlatformTest;
using Pieces = std::vector<std::string>;

TEST_F(Osal, SplitDropsEmptyPieces_AndTrimOnlyTheEnds) {
    struct Case {
        std::string text;
        Pieces pieces;
    } cases[] = {{"", {}},
                 {"   ", {}},
                 {"one", {"one"}},
                 {" a  b ", {"a", "b"}},
                 {"a,b;c", {"a,b;c"}},
                 {"line\nbreak here", {"line\nbreak", "here"}}};
    for (const auto& c : cases)
        EXPECT_EQ(splitOnDelimeters(c.text, " "), c.pieces) << '"' << c.text << '"';
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

TEST_F(Osal, Keys_ConvertFromSystemCodes) {
    using namespace device::input;
    EXPECT_EQ(getKeyFromSystemKey('1'), KEY_1);
    EXPECT_EQ(getKeyFromSystemKey('0'), KEY_0);
    EXPECT_EQ(int(KEY_0), 10);
    EXPECT_EQ(getKeyFromSystemKey(XUI_KEY_ENTER), KEY_ENTER);
    EXPECT_EQ(getKeyFromSystemKey(XUI_KEY_F1 + 3), KEY_F4);
    EXPECT_EQ(getKeyFromSystemKey(-5), KEY_NONE);
    EXPECT_EQ(getKeyString(KEY_0), "0");
    EXPECT_EQ(getKeyString(KEY_ENTER), "");
    EXPECT_EQ(getKeyName(KEY_F2), "F2");
}

TEST_F(Osal, LogWritesOnlyAdmittedLevels_AndExceptionsWithSourceLineAndWhat) {
    GetGlobalLogConfig().setLevel(LogLevel::Error);
    LOG(LogLevel::Info) << "quiet";
    LOG(LogLevel::Error) << "loud " << 42;
    auto lines = log();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(lines[0].find("loud 42"), std::string::npos);

    struct BoostError : boost::exception {};
    LogException("Here", 7);
    LogException("There", 8, std::runtime_error("boom"));
    LogException("Boost", 9, BoostError());
    auto reports = osal::host::exceptionReports();
    ASSERT_EQ(reports.size(), 3u);
    EXPECT_EQ(reports[0].source, "Here");
    EXPECT_EQ(reports[1].line, 8);
    EXPECT_EQ(reports[1].what, "boom");
    EXPECT_EQ(reports[2].source, "Boost");
    EXPECT_EQ(log().size(), 4u); // an exception is logged at error level
}

} // namespace
