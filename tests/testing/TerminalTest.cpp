// The kit as an application's suite uses it: bring the terminal up, show a screen, type, and
// look at what is on the panel, with nothing slept to wait for a frame.
#include "Golden.hpp"

#include <app/Screen.hpp>
#include <ui/kit/Matchers.hpp>
#include <ui/kit/Terminal.hpp>

#include <gtest/gtest.h>

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
    EXPECT_THAT(texts, ui::kit::ShowsText("\xC2\xA3"
                                          "12.50"));
    EXPECT_THAT(texts, testing::Not(ui::kit::ShowsText("\xC2\xA3"
                                                       "0.00")));
    EXPECT_EQ(texts.back().y, 128u); // one empty line under the two lines of the message
    EXPECT_EQ(screen->prompt().getInputText(), "1250");
}

// Multi-tap in virtual time: the same key after the 750 ms interval starts a new character. The
// header's state shows at the next settle.
TEST(KitTerminalTest, TypesWithThePauseAsked_AndShowsTheHeadersState) {
    ui::kit::TerminalOptions options;
    options.statusHeader = true;
    options.virtualTime = true;
    ui::kit::Terminal terminal(options);
    auto screen = std::make_shared<app::PromptScreen>(ui::input::createTextPrompt(false, false, true, 0, 10));
    terminal.show(screen);
    terminal.type("22", std::chrono::milliseconds(750));
    terminal.type("22");
    EXPECT_EQ(screen->prompt().getInputText(), "AAB");
    terminal.header().setOfflineCount(7);
    EXPECT_THAT(terminal.texts(), ui::kit::ShowsText("7"));
    EXPECT_THAT(terminal.texts(), ui::kit::ShowsText("09:30"));
}

TEST(KitTerminalTest, SettleWithoutAViewFailsInsteadOfHanging) {
    ui::kit::TerminalOptions options;
    options.timeout = std::chrono::milliseconds(200);
    ui::kit::Terminal terminal(options);
    EXPECT_THROW(terminal.settle(), std::runtime_error);
}

// A tap that the application answers with the indicator's success: the LEDs in the schemes'
// order and the success tone, read back as they came.
TEST(KitTerminalTest, ATapLightsTheLedsInOrderWithTheSuccessTone) {
    ui::kit::Terminal terminal;
    terminal.show(std::make_shared<app::Screen>());
    terminal.ui().enableContactless({0, 0, 68, 32}, CtlsStatusIndicatorConfiguration{});
    ui::ServiceLocator::updateContactlessIndicator(ui::State::Ready);
    ASSERT_TRUE(terminal.waitForLeds("1000"));
    terminal.onTap([](bool approved) {
        ui::ServiceLocator::updateContactlessIndicator(approved ? ui::State::Success : ui::State::Error);
    });
    terminal.tap(); // Success returns once its sequence has played
    const auto timeline = terminal.timeline();
    EXPECT_THAT(timeline, ui::kit::SoundedTones({{1500, 500}}));
    EXPECT_THAT(timeline, ui::kit::HappenedInOrder(
                              {"leds 1000", "tone 1500 Hz 500 ms", "leds 1100", "leds 1110", "leds 1111"}));
    EXPECT_THAT(timeline, testing::Not(ui::kit::HappenedInOrder({"leds 1110", "leds 1100"})));
}

} // namespace
