// The headless session as any application gets it: each step waits for what the platform sees
// the library's threads do, whatever the application tells it, and fails naming what it waited
// for; a session watches beside terminals.
#include <ui/app/Screen.hpp>
#include <ui/kit/Matchers.hpp>
#include <ui/kit/Terminal.hpp>
#include <ui/session/Session.hpp>

#include <osal/device.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

std::vector<ui::session::Command> script(const std::string& text) {
    std::istringstream in(text);
    return ui::session::parseScript(in, "test.session");
}

// An application that says nothing of its waits: one screen, the indicator Ready, and a card
// changes the indicator's state on the thread that plays the script.
class PlainApp : public ui::session::Application {
public:
    PlainApp() : ui_(GraphicsDeviceParams{0, 32}) {
        ui_.initialize();
        ui_.enableContactless(app::StatusHeader::kIndicatorArea, CtlsStatusIndicatorConfiguration{});
        graphics_ = ui::ServiceLocator::getGraphicsService();
        graphics_->setContext(std::make_shared<app::Screen>());
        ui::ServiceLocator::updateContactlessIndicator(ui::State::Ready);
    }
    ui::IGraphics& graphics() override { return *graphics_; }
    void tapCard(bool approved) override {
        ui::ServiceLocator::updateContactlessIndicator(approved ? ui::State::Success : ui::State::Error);
    }

private:
    ui::UserInterface ui_;
    ui::IGraphics* graphics_ = nullptr;
};

TEST(KitSessionTest, AStepWaitsForTheIndicatorsSequenceAndAlert_WithoutTheApplicationsHelp) {
    ui::kit::Platform platform;
    ui::session::Session session;
    PlainApp app;
    const auto steps = session.play(script("tap\ntap declined\n"), app);
    EXPECT_EQ(
        ui::session::timelineLines(steps, false),
        (std::vector<std::string>{"step 00  start", "  leds 1000", "step 01  tap", "  tone 1500 Hz 500 ms",
                                  "  leds 1100", "  leds 1110", "  leds 1111", "  leds 0000",
                                  "step 02  tap declined", "  tone 750 Hz 200 ms", "  tone 750 Hz 200 ms"}));
}

// A session that may wait 50 ms for a step: the alert's pause between its beeps is longer.
TEST(KitSessionTest, AStepThatDoesNotSettleFailsNamingWhatItWaitedFor) {
    ui::kit::Platform platform;
    ui::session::SessionOptions options;
    options.patience = std::chrono::milliseconds(50);
    ui::session::Session session(options);
    PlainApp app;
    std::string error;
    try {
        session.play(script("tap declined\n"), app);
    } catch (const std::runtime_error& e) {
        error = e.what();
    }
    EXPECT_THAT(error,
                testing::MatchesRegex("step 1 \\(tap declined\\) did not settle in 50 ms: thread [0-9]+ "
                                      "(sleeping 400 ms, last beep 750 Hz 200 ms|still at work.*)"));
}

// Watchers made and gone in any order each see what sounded while they watched.
TEST(KitSessionTest, ASessionAndATerminalWatchTogether_MadeAndGoneInAnyOrder) {
    auto session = std::make_unique<ui::session::Session>();
    auto terminal = std::make_unique<ui::kit::Terminal>();
    device::beep(1000, 10);
    session.reset();
    device::beep(2000, 10);
    EXPECT_THAT(terminal->timeline(), ui::kit::SoundedTones({{1000, 10}, {2000, 10}}));
    auto recorder = std::make_unique<ui::session::Recorder>();
    terminal.reset();
    device::beep(3000, 10);
    EXPECT_EQ(recorder->beeps().size(), 1u);
}

} // namespace
