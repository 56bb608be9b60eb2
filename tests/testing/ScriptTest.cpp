// Session scripts as a person writes them: every command read, every mistake named with its
// line, and the one key table.
#include <ui/session/Script.hpp>

#include <xui.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

std::vector<ui::session::Command> parse(const std::string& text) {
    std::istringstream in(text);
    return ui::session::parseScript(in, "test.session");
}

TEST(ScriptTest, ReadsEveryCommand_IgnoringCommentsAndBlankLines) {
    const auto commands = parse("# a session\n\nkey ENTER   # the menu\nkeys 0930\nwait 800\ntap\n"
                                "tap declined\nbattery 6\nethernet off\nsignal 100\nflight on\noffline 12\n"
                                "update off\nclock 2026-11-22 18:45\nshot receipt_2\n");
    ASSERT_EQ(commands.size(), 13u);
    EXPECT_EQ(commands[0].kind, ui::session::Command::Key);
    EXPECT_EQ(commands[0].line, 3);
    EXPECT_EQ(commands[0].text, "key ENTER");
    std::string read; // each command's word, number and switch
    for (const auto& c : commands)
        read += c.word + "/" + std::to_string(c.number) + (c.on ? "/on " : " ");
    EXPECT_EQ(
        read,
        "ENTER/0 0930/0 /800 /0/on /0 /6 /0 /100 /0/on /12 /0 2026-11-22 18:45/1795373100 receipt_2/0 ");
}

TEST(ScriptTest, AnErrorNamesTheLineAndWhatWasExpected) {
    struct Bad {
        std::string line, message;
    };
    const Bad cases[] = {
        {"prss ENTER", "test.session:2: unknown command \"prss\"; expected one of key, keys, wait"},
        {"key ENTRE", "test.session:2: unknown key \"ENTRE\"; expected one of 0-9, ENTER"},
        {"key", "test.session:2: key takes 1 argument, not 0; expected key NAME"},
        {"keys 12a", "test.session:2: \"12a\" holds something other than digits; expected keys DIGITS"},
        {"wait soon", "test.session:2: \"soon\" is not a number from 0 to 60000; expected wait MILLISECONDS"},
        {"battery 7", "test.session:2: \"7\" is not a number from 0 to 6; expected battery 0-6"},
        {"flight maybe", "test.session:2: \"maybe\" is neither on nor off; expected flight on|off"},
        {"tap twice", "test.session:2: a tap is approved or declined; expected tap"},
        {"clock 2026-13-40 25:00", "test.session:2: \"2026-13-40 25:00\" is not a date and time"},
        {"shot ../x", "test.session:2: \"../x\" is not a file name"},
    };
    for (const auto& c : cases) {
        EXPECT_THAT([&] { parse("key ENTER\n" + c.line + "\nkey ENTER\n"); },
                    testing::ThrowsMessage<ui::session::ScriptError>(testing::StartsWith(c.message)));
    }
}

TEST(ScriptTest, OneKeyTable_TypedStarAndHashAreKeysOnAnyLayout) {
    EXPECT_EQ(ui::session::keyCode("STAR"), XUI_KEY_STAR);
    EXPECT_EQ(ui::session::keyCode("7"), '7');
    EXPECT_EQ(ui::session::keyCode("ENTRE"), XUI_KEY_NONE);
    EXPECT_EQ(ui::session::keyForTypedCharacter('*'), XUI_KEY_STAR);
    EXPECT_EQ(ui::session::keyForTypedCharacter('#'), XUI_KEY_HASH);
    EXPECT_EQ(ui::session::keyForTypedCharacter('0'), '0');
    EXPECT_EQ(ui::session::keyForTypedCharacter('t'), XUI_KEY_NONE); // a shortcut of the window's
}

} // namespace
