// The kit as an application's suite uses it: bring the terminal up, show a screen, type, and
// look at what is on the panel, with nothing slept to wait for a frame.
#include <ui/app/Screen.hpp>
#include <ui/kit/Matchers.hpp>
#include <ui/kit/Terminal.hpp>
#include <ui/kit/Widgets.hpp>

#include <osal/timer.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <map>
#include <thread>

namespace {

using namespace std::chrono_literals;

ui::kit::TerminalOptions quick(bool virtualTime = false) {
    ui::kit::TerminalOptions options;
    options.statusHeader = true;
    options.virtualTime = virtualTime;
    options.timeout = 200ms;
    return options;
}

// Multi-tap in virtual time: the same key after the 750 ms interval starts a new character. The
// header's state shows at the next settle.
TEST(KitTerminalTest, TypesWithThePauseAsked_AndShowsTheHeadersState) {
    ui::kit::Terminal terminal(quick(true));
    auto screen = std::make_shared<app::PromptScreen>(ui::input::createTextPrompt(false, false, true, 0, 10));
    terminal.show(screen);
    terminal.type("22", 750ms);
    terminal.type("22");
    EXPECT_EQ(screen->prompt().getInputText(), "AAB");
    terminal.header().setOfflineCount(7);
    EXPECT_THAT(terminal.texts(), ui::kit::ShowsText("7"));
    EXPECT_THAT(terminal.texts(), ui::kit::ShowsText("09:30"));
    EXPECT_THAT(terminal.texts(), testing::Not(ui::kit::ShowsText("8")));
}

// A key handler that throws is logged by the library, and the test fails; a draw that throws
// leaves no frame, and the settle that waited for one names it. A test that expects them takes
// them.
void pressOnAScreenThatThrows() {
    ui::kit::Terminal terminal(quick());
    auto screen = std::make_shared<ui::kit::RecordingScreen>();
    screen->onKey = [](device::input::Key) { throw std::runtime_error("no such amount"); };
    terminal.show(screen);
    terminal.press('5');
}

TEST(KitTerminalTest, AnExceptionTheLibraryLogsFailsTheTest_UnlessTheTestTakesIt) {
    EXPECT_NONFATAL_FAILURE(pressOnAScreenThatThrows(),
                            "the library caught and logged an exception: KeyBoard:");
    ui::kit::Terminal terminal(quick());
    const auto settle = [&] { terminal.settle(); };
    EXPECT_THAT(settle, testing::ThrowsMessage<std::runtime_error>(testing::EndsWith("ms; is a view set?")));
    auto screen = std::make_shared<ui::kit::RecordingScreen>();
    std::atomic<bool> throws{true};
    screen->onDraw = [&](_XuiWindow*) {
        if (throws)
            throw std::runtime_error("no font");
    };
    terminal.graphics().setContext(screen);
    EXPECT_THAT(settle, testing::ThrowsMessage<std::runtime_error>(
                            testing::HasSubstr("ms; the library logged GraphicsDevice:")));
    throws = false;
    terminal.settle(); // no draw that throws is under way
    EXPECT_THAT(terminal.takeExceptions(), testing::Each(testing::EndsWith(": no font")));
}

// Virtual time passes the indicator's pauses at once; the timeline keeps one clock and the order
// things happened in, a tone between the LED changes around it.
TEST(KitTerminalTest, InVirtualTimeTheSuccessSequencePlaysAtOnce_InTheOrderItHappened) {
    ui::kit::Terminal terminal(quick(true));
    // Virtual time passes exactly what was paused: scheme 2's one step of 125 ms, or scheme 1's
    // two of 100 ms, then the 650 ms hold from the last LED (less the real time the worker took
    // between them). Success returns once it has played.
    for (const auto& [scheme, played] : {std::pair(2, 775), std::pair(1, 850)}) {
        CtlsStatusIndicatorConfiguration configuration;
        configuration.ledScheme = scheme;
        terminal.ui().enableContactless(app::StatusHeader::kIndicatorArea, configuration);
        ui::ServiceLocator::updateContactlessIndicator(ui::State::Ready);
        ASSERT_TRUE(terminal.waitForLeds("1000"));
        const int64_t before = osal::monotonicMs();
        ui::ServiceLocator::updateContactlessIndicator(ui::State::Success);
        EXPECT_NEAR(osal::monotonicMs() - before, played, 20) << "scheme " << scheme;
    }
    ASSERT_TRUE(terminal.waitForLeds("0000"));
    const auto timeline = terminal.timeline();
    EXPECT_THAT(timeline, ui::kit::HappenedInOrder({"leds 1000", "tone 1500 Hz 500 ms", "leds 1100",
                                                    "leds 1110", "leds 1111", "leds 0000"}));
    EXPECT_TRUE(std::is_sorted(timeline.begin(), timeline.end(),
                               [](const auto& a, const auto& b) { return a.atMs < b.atMs; }));
}

// texts() reads one presented frame, whatever else draws meanwhile: the screen's own thread,
// its key handler on the keypad thread and the indicator's worker flashing the header, with the
// other core kept busy.
TEST(KitTerminalTest, TextsHoldExactlyOneFrame_WhileEverythingElseRedraws) {
#ifdef UI_SLOW_TREE
    constexpr int reads = 200;
#else
    constexpr int reads = 2000;
#endif
    ui::kit::Terminal terminal(quick());
    CtlsStatusIndicatorConfiguration flashing;
    flashing.idlePeriodMs = flashing.idleFlashMs = 5;
    terminal.ui().enableContactless(app::StatusHeader::kIndicatorArea, flashing);
    ui::ServiceLocator::updateContactlessIndicator(ui::State::Idle);
    auto screen = std::make_shared<ui::kit::RecordingScreen>();
    auto counter = std::make_shared<ui::Label>(0, 0, 320, 20),
         still = std::make_shared<ui::Label>(0, 40, 320, 20);
    counter->setText("tick 0");
    still->setText("still");
    screen->add(counter);
    screen->add(still);
    screen->onKey = [&](device::input::Key) { terminal.graphics().update(); };
    terminal.show(screen);

    std::atomic<bool> stop{false};
    std::vector<std::thread> others;
    // As an animation does, at up to a thousand pictures a second: the next once the last is shown.
    others.emplace_back([&] {
        for (unsigned n = 1; !stop; ++n) {
            const uint64_t shown = xui_host::mainFramesShown();
            counter->setText("tick " + std::to_string(n));
            terminal.graphics().update();
            xui_host::waitForMainFrames(shown + 1, 5s);
            std::this_thread::sleep_for(1ms);
        }
    });
    others.emplace_back([&] {
        while (!stop) {
            xui_host::pushKey('5');
            xui_host::waitForKeysHandled(5s);
        }
    });
    others.emplace_back([&] {
        for (volatile unsigned spin = 0; !stop;)
            spin = spin + 1;
    });
    const std::map<std::string, int> oneFrame = {{"tick", 1}, {"still", 1}, {"09:30", 1}, {"22/11/2026", 1}};
    int inexact = 0;
    std::string first;
    for (int i = 0; i < reads; ++i) {
        std::map<std::string, int> seen;
        for (const auto& text : terminal.texts())
            ++seen[text.text.rfind("tick ", 0) == 0 ? "tick" : text.text];
        if (seen != oneFrame && inexact++ == 0)
            for (const auto& [text, count] : seen)
                first += " \"" + text + "\" x" + std::to_string(count);
    }
    stop = true;
    for (auto& thread : others)
        thread.join();
    EXPECT_EQ(inexact, 0) << "of " << reads << " reads; the first:" << first;
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
