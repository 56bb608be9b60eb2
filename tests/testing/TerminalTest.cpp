// The kit as an application's suite uses it: bring the terminal up, show a screen, type, and
// look at what is on the panel, with nothing slept to wait for a frame.
#include "Golden.hpp"

#include <Screen.hpp>
#include <ui/kit/Terminal.hpp>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

TEST(KitTerminalTest, AnAmountTypedIsOnThePanelOnceSettled) {
    ui::kit::Terminal terminal({320, 240, 0, 24});
    auto screen = std::make_shared<app::PromptScreen>(
        ui::input::createCurrencyPrompt(1, 99999, 2, "\xC2\xA3", "."), 0, 0, 320, 216);
    screen->prompt().setText(21);
    ui::input::AlignCenter(screen->prompt());
    terminal.show(screen);
    terminal.type("1250");
    EXPECT_TRUE(test::matchesGolden(terminal.screen(), "prompt_currency"));
    const auto texts = terminal.texts();
    ASSERT_FALSE(texts.empty());
    EXPECT_EQ(texts.back().text, "\xC2\xA3"
                                 "12.50");
    EXPECT_EQ(texts.back().y, 128u); // one empty line under the two lines of the message
    EXPECT_EQ(screen->prompt().getInputText(), "1250");
}

TEST(KitTerminalTest, SettleWithoutAViewFailsInsteadOfHanging) {
    ui::kit::TerminalOptions options;
    options.timeout = std::chrono::milliseconds(200);
    ui::kit::Terminal terminal(options);
    EXPECT_THROW(terminal.settle(), std::runtime_error);
}

} // namespace
