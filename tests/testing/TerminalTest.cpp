// The kit as an application's suite uses it: bring the terminal up, show a screen, type, and
// look at what is on the panel, with nothing slept to wait for a frame.
#include <app/Screen.hpp>
#include <ui/kit/Matchers.hpp>
#include <ui/kit/Terminal.hpp>

#include <gtest/gtest.h>

namespace {

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
    EXPECT_THAT(terminal.texts(), testing::Not(ui::kit::ShowsText("8")));
}

TEST(KitTerminalTest, SettleWithoutAViewFailsInsteadOfHanging) {
    ui::kit::TerminalOptions options;
    options.timeout = std::chrono::milliseconds(200);
    ui::kit::Terminal terminal(options);
    EXPECT_THROW(terminal.settle(), std::runtime_error);
}

// The matchers on a timeline as the recorder gives it: tones in order and nothing else, events
// in order with others between them.
TEST(KitMatchersTest, TonesAndEventsMustComeInTheirOrder) {
    const std::vector<ui::kit::Event> timeline = {
        {0, "leds 1000"}, {2, "tone 1500 Hz 500 ms"}, {3, "leds 1100"}, {103, "leds 1110"}};
    EXPECT_THAT(timeline, ui::kit::SoundedTones({{1500, 500}}));
    EXPECT_THAT(timeline, testing::Not(ui::kit::SoundedTones({{1500, 500}, {1500, 500}})));
    EXPECT_THAT(timeline, ui::kit::HappenedInOrder({"leds 1000", "tone 1500 Hz 500 ms", "leds 1110"}));
    EXPECT_THAT(timeline, testing::Not(ui::kit::HappenedInOrder({"leds 1110", "leds 1100"})));
}

} // namespace
