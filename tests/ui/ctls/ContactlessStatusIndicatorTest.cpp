#include "Support.hpp"

#include "ui/ContactlessStatusIndicator.hpp"
#include "ui/UserInterface.hpp"
#include "ui/Window.hpp"

#include <ui/session/Recorder.hpp>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using testing::AllOf;
using testing::Ge;
using testing::Lt;
using ui::State;

// The indicator on the full stack: a 24-pixel status bar, the LEDs in its first 100 pixels.
// The kit's recorder reads the LEDs from the pictures the header really draws, with the time of
// each change; the waits are real, so every bound allows for a loaded machine.
class ContactlessTest : public test::PlatformTest {
protected:
    ContactlessTest() { openDisplay = false; }
    void SetUp() override {
        test::PlatformTest::SetUp();
        recorder = std::make_unique<ui::session::Recorder>();
        ui_ = std::make_unique<ui::UserInterface>(GraphicsDeviceParams{0, 24});
        ui_->initialize();
        graphics = ui::ServiceLocator::getGraphicsService();
    }
    void TearDown() override {
        ui_.reset();
        recorder.reset();
        test::PlatformTest::TearDown();
    }

    // A new indicator (the one before goes) starts Off: dark.
    void enable(const CtlsStatusIndicatorConfiguration& configuration = {}) {
        ui_->enableContactless({0, 0, 100, 24}, configuration);
        EXPECT_TRUE(showsSoon("0000"));
    }
    static void set(State state) { ui::ServiceLocator::updateContactlessIndicator(state); }
    bool showsSoon(const std::string& leds) { return recorder->waitForLeds(leds, 5s); }

    struct Change {
        int64_t atMs;
        std::string leds;
    };
    // The LED patterns drawn since the last call, each as it first appeared.
    std::vector<Change> changes() {
        std::vector<Change> out;
        for (auto& [at, what] : recorder->take())
            if (what.rfind("leds ", 0) == 0)
                out.push_back({at, what.substr(5)});
        return out;
    }
    static std::vector<std::string> patterns(const std::vector<Change>& changes) {
        std::vector<std::string> out;
        for (const auto& c : changes)
            out.push_back(c.leds);
        return out;
    }
    // Plays Ready, then starts afresh: no beep, no change recorded.
    void ready() {
        set(State::Ready);
        ASSERT_TRUE(showsSoon("1000"));
        changes();
        osal::host::clearBeeps();
    }

    std::unique_ptr<ui::session::Recorder> recorder;
    std::unique_ptr<ui::UserInterface> ui_;
    ui::IGraphics* graphics = nullptr;
};

using Patterns = std::vector<std::string>;

TEST_F(ContactlessTest, StartsDark_ReadyLightsTheFirstLed_OffDarkensIt) {
    // Enabling shows the status bar itself: the worker's first redraw may come before the window
    // knows the indicator.
    const auto caller = std::this_thread::get_id();
    std::atomic<int> shownByCaller{0};
    const int listener = xui_host::addCallListener([&](const xui_host::Call& call) {
        if (call.function == "ShowWindow" && call.args.size() > 1 && call.args[1] == "1" &&
            std::this_thread::get_id() == caller)
            ++shownByCaller;
    });
    enable();
    xui_host::removeCallListener(listener);
    EXPECT_EQ(shownByCaller.load(), 1);
    set(State::Ready);
    EXPECT_TRUE(showsSoon("1000"));
    graphics->updateHeader(); // drawn is not yet shown: a synchronous redraw presents it
    auto header = xui_host::screen();
    header.height = 24;
    header.argb.resize(size_t(header.width) * header.height);
    EXPECT_TRUE(ui::kit::matchesGolden(header, "header_contactless_ready.png"));
    set(State::Off);
    EXPECT_TRUE(showsSoon("0000"));
    EXPECT_TRUE(osal::host::waitUntilSettled(5s)) << osal::host::unsettled(); // dark, the worker waits
    EXPECT_TRUE(osal::host::beeps().empty());
}

// Success plays its sequence (LED 0 is left as Ready lit it) with the tone as the first LED
// lights, and returns once the LEDs are dark; a scheme other than 1 and 2 plays nothing.
TEST_F(ContactlessTest, Success_LightsInTurnWithTheTone_AndBlocksUntilDark) {
    const struct {
        int scheme;
        Patterns leds;
        std::vector<int64_t> gaps; // the least, and under 300 ms more
        std::chrono::milliseconds blocks;
    } cases[] = {{1, {"1100", "1110", "1111", "0000"}, {100, 100, 650}, 850ms},
                 {2, {"1100", "1110", "0000"}, {125, 650}, 775ms},
                 {3, {}, {}, 0ms}};
    // Twice over: a hold one millisecond short shows in the timeline's whole milliseconds only
    // when the worker wakes within the fraction of a millisecond left over.
    for (int round = 0; round < 2; ++round) {
        for (const auto& c : cases) {
            CtlsStatusIndicatorConfiguration configuration;
            configuration.ledScheme = c.scheme;
            enable(configuration);
            ready();
            const auto start = Clock::now();
            set(State::Success);
            EXPECT_THAT(Clock::now() - start, AllOf(Ge(c.blocks), Lt(c.blocks + 1000ms)))
                << "scheme " << c.scheme;
            if (c.leds.empty()) {
                EXPECT_TRUE(showsSoon("0000"));
                EXPECT_TRUE(osal::host::beeps().empty());
                continue;
            }
            const auto steps = changes();
            ASSERT_EQ(patterns(steps), c.leds) << "scheme " << c.scheme;
            for (size_t i = 0; i < c.gaps.size(); ++i) // whole milliseconds of one clock: never less
                EXPECT_THAT(steps[i + 1].atMs - steps[i].atMs, AllOf(Ge(c.gaps[i]), Lt(c.gaps[i] + 300)))
                    << "scheme " << c.scheme << ", step " << i;
            const auto beeps = osal::host::beeps();
            ASSERT_EQ(beeps.size(), 1u);
            EXPECT_EQ(std::pair(beeps[0].frequencyHz, beeps[0].durationMs), std::pair(1500u, 500u));
            EXPECT_LE(beeps[0].atMs, steps[0].atMs); // sounded with the first LED, before its redraw
            EXPECT_LT(steps[0].atMs - beeps[0].atMs, 200);

            const auto again = Clock::now(); // already in Success: nothing plays, nothing blocks
            set(State::Success);
            EXPECT_LT(Clock::now() - again, 200ms);
            EXPECT_EQ(osal::host::beeps().size(), 1u);
        }
    }
}

TEST_F(ContactlessTest, Idle_FlashesTheFirstLed_AndAChangeEndsTheWaitAtOnce) {
    CtlsStatusIndicatorConfiguration quick;
    quick.idlePeriodMs = 300;
    quick.idleFlashMs = 150;
    enable(quick);
    ready();
    set(State::Idle);
    std::vector<Change> steps;
    ASSERT_TRUE(test::eventually([&] { // dark, lit, dark
        for (auto& c : changes())
            steps.push_back(c);
        return steps.size() >= 3;
    }));
    EXPECT_EQ(patterns(steps)[0], "0000");
    EXPECT_EQ(patterns(steps)[1], "1000");
    EXPECT_GE(steps[1].atMs - steps[0].atMs, 299);
    EXPECT_GE(steps[2].atMs - steps[1].atMs, 149);
    EXPECT_LT(steps[2].atMs - steps[1].atMs, 600);

    enable(); // the default five seconds of dark, shown at once
    ready();
    set(State::Idle);
    ASSERT_TRUE(showsSoon("0000")); // the worker is in its wait, or about to be: it must let go
    const auto start = Clock::now();
    set(State::Ready);
    ASSERT_TRUE(showsSoon("1000"));
    EXPECT_LT(Clock::now() - start, 1000ms);
}

// Processing lights the second LED in scheme 2 only, when enabled (else nothing is redrawn);
// the errors show their pattern with the alert, two 750 Hz beeps 400 ms apart, unless disabled.
TEST_F(ContactlessTest, ProcessingAndErrors_ShowTheirPatternWithTheirTones) {
    const struct {
        int scheme;
        bool processingLed, alert;
        State state;
        std::string leds;
    } cases[] = {{1, false, true, State::Processing, "1000"}, {1, true, true, State::Processing, "1000"},
                 {2, false, true, State::Processing, "1000"}, {2, true, true, State::Processing, "1100"},
                 {1, false, true, State::Error, "0000"},      {2, false, true, State::ErrorAlternate, "0001"},
                 {2, false, false, State::Error, "0001"}};
    for (const auto& c : cases) {
        CtlsStatusIndicatorConfiguration configuration;
        configuration.ledScheme = c.scheme;
        configuration.processingLedEnabled = c.processingLed;
        configuration.alertToneEnabled = c.alert;
        enable(configuration);
        ready();
        set(c.state);
        if (c.leds == "1000") {
            ASSERT_TRUE(osal::host::waitUntilSettled(5s)); // the worker is done with the change
            EXPECT_TRUE(changes().empty()) << "scheme " << c.scheme;
            continue;
        }
        ASSERT_TRUE(showsSoon(c.leds)) << "scheme " << c.scheme << ", state " << int(c.state);
        const auto beeps = osal::host::beeps();
        if (c.state == State::Processing || !c.alert) {
            EXPECT_TRUE(beeps.empty());
            continue;
        }
        ASSERT_EQ(beeps.size(), 2u);
        EXPECT_EQ(std::pair(beeps[0].frequencyHz, beeps[0].durationMs), std::pair(750u, 200u));
        EXPECT_GE(beeps[1].atMs - beeps[0].atMs, 400);   // the beep and its pause
        EXPECT_LE(beeps[1].atMs, changes().back().atMs); // the LEDs change after the tone
        set(State::Ready);                               // from any pattern: the first LED alone
        EXPECT_TRUE(showsSoon("1000"));
    }
}

// A change made while the worker is busy plays once; a state it does not know changes nothing,
// and the worker waits for the next.
TEST_F(ContactlessTest, AChangeMadeWhileTheWorkerIsBusyPlaysOnce_AnUnknownStateChangesNothing) {
    enable();
    set(State::Error); // while the worker is still starting: its first round already plays it
    ASSERT_TRUE(osal::host::waitUntilSettled(5s));
    EXPECT_EQ(osal::host::beeps().size(), 2u);
    ready();
    set(State(9));
    EXPECT_TRUE(osal::host::waitUntilSettled(5s)) << osal::host::unsettled();
    EXPECT_TRUE(changes().empty());
    set(State::Off);
    EXPECT_TRUE(showsSoon("0000"));
}

TEST_F(ContactlessTest, AnIndicatorWithoutWorkerNeverBlocks_AndEnablingBeforeInitializeIsIgnored) {
    ui_.reset();
    const int threads = test::settledThreadCount();
    ui::UserInterface bare(GraphicsDeviceParams{0, 24});
    bare.enableContactless({0, 0, 100, 24}, {});
    EXPECT_TRUE(test::eventually([&] { return test::threadCount() == threads + 1; })); // rendering only
    set(State::Success);                                                               // nobody registered

    ui::ContactlessStatusIndicator idle(0, 0, 100, 24);
    ui::ServiceLocator::addContactlessStatusIndicator(&idle);
    const auto start = Clock::now();
    set(State::Success);
    EXPECT_LT(Clock::now() - start, 200ms);
    EXPECT_EQ(idle.getState(), State::Success);
    ui::ContactlessStatusIndicator headless(0, 0, 100, 24);
    headless.initialize({}, nullptr); // a worker with nothing to redraw: it plays, and asks no one
    ui::ServiceLocator::addContactlessStatusIndicator(&headless);
    set(State::Error); // the indicator without a worker holds a request nobody takes: not waited on
    EXPECT_TRUE(test::eventually([] { return osal::host::beeps().size() == 2; }));
}

// A fault in the worker's round is logged where the terminal's logs have always had it, and the
// worker goes on.
TEST_F(ContactlessTest, AFaultInTheWorkersRoundIsLoggedAtItsLine_AndTheWorkerGoesOn) {
    // The worker's first two redraws fail: a standard exception, then something else thrown.
    struct FaultyHeader : test::View {
        std::thread::id caller = std::this_thread::get_id();
        std::atomic<int> faults{0};
        void draw(_XuiWindow*) override {
            if (std::this_thread::get_id() == caller)
                return;
            if (const int fault = faults++; fault == 0)
                throw std::runtime_error("header fault");
            else if (fault == 1)
                throw 7;
        }
    };
    graphics->getWindow()->setHeader(std::make_shared<FaultyHeader>());
    enable();
    // The worker's first round may come after the caller's redraw has shown the LEDs.
    ASSERT_TRUE(test::eventually([] { return !osal::host::exceptionReports().empty(); }));
    set(State::Ready);
    ASSERT_TRUE(test::eventually([] { return osal::host::exceptionReports().size() == 2; }));
    std::vector<std::string> logged;
    for (const auto& report : osal::host::exceptionReports())
        logged.push_back(report.source + ":" + std::to_string(report.line) + " " + report.what);
    EXPECT_EQ(logged, (std::vector<std::string>{"ctls/ContactlessStatusIndicator:309 header fault",
                                                "ctls/ContactlessStatusIndicator:309 "}));
    set(State::Off);
    set(State::Ready);
    EXPECT_TRUE(showsSoon("1000"));
}

// The terminal's timing and tones by default; a configuration of other than four LEDs is refused.
TEST_F(ContactlessTest, AnInvalidConfigurationThrows_StartsNothing_AndStaysRegistered) {
    const CtlsStatusIndicatorConfiguration d;
    EXPECT_EQ(
        (std::vector<int>{d.ledScheme, d.idlePeriodMs, d.idleFlashMs, d.successToneDurationMs,
                          d.successToneFrequencyHz, d.successStepMs, d.successStepScheme2Ms, d.successHoldMs,
                          d.alertToneDurationMs, d.alertToneFrequencyHz, d.alertTonePauseMs, d.alertToneCount,
                          d.processingLedEnabled, d.alertToneEnabled}),
        (std::vector<int>{1, 5000, 200, 500, 1500, 200, 125, 650, 200, 750, 200, 2, false, true}));
    EXPECT_EQ(d.ledOnImages, std::vector<std::string>(4, "res/images/ctls/leds/green.png"));
    EXPECT_EQ(d.ledOffImages, std::vector<std::string>(4, "res/images/ctls/leds/black.png"));

    const int threads = test::settledThreadCount();
    CtlsStatusIndicatorConfiguration three;
    three.ledOnImages.pop_back();
    ui::ContactlessStatusIndicator indicator(0, 0, 100, 24);
    EXPECT_THAT([&] { indicator.initialize(three, graphics); },
                ThrowsMessage<std::runtime_error>(StrEq("CtlsStatusIndicator - Invalid LED Configuration")));
    set(State::Ready);
    EXPECT_EQ(indicator.getState(), State::Ready);
    EXPECT_EQ(test::threadCount(), threads);
}

TEST_F(ContactlessTest, SoundTone_PlaysOnTheCallersThread) {
    osal::host::useVirtualTime(true); // the pause between alert beeps passes at once
    ui::ContactlessStatusIndicator indicator(0, 0, 100, 24);
    indicator.soundTone(static_cast<ui::Tone>(7)); // no such tone: silence
    EXPECT_TRUE(osal::host::beeps().empty());
    indicator.soundTone(ui::Tone::SuccessTone);
    indicator.soundTone(ui::Tone::AlertTone);
    auto beeps = osal::host::beeps();
    ASSERT_EQ(beeps.size(), 3u);
    EXPECT_EQ(std::pair(beeps[0].frequencyHz, beeps[1].frequencyHz), std::pair(1500u, 750u));
    EXPECT_EQ(beeps[2].atMs - beeps[1].atMs, 400);
}

TEST_F(ContactlessTest, DestroyingTheIndicatorReturnsPromptlyInEveryState) {
    for (State state : {State::Off, State::Idle, State::Ready, State::Processing, State::Error,
                        State::Success, static_cast<State>(9)}) {
        enable();
        set(state);
        ASSERT_TRUE(osal::host::waitUntilSettled(5s)); // into its wait, an alert played
        const auto start = Clock::now();
        auto window = graphics->getWindow();
        window->setContactlessStatusIndicator(nullptr); // the last owner: joined here
        EXPECT_LT(Clock::now() - start, 500ms) << "state " << int(state);
        set(State::Ready); // the locator no longer reaches it
        osal::host::clearBeeps();
    }
    // Destroyed before its worker got going, as often as the scheduler allows: it starts no round.
    for (int i = 0; i < 200; ++i)
        ui::ContactlessStatusIndicator(0, 0, 100, 24).initialize({}, nullptr);
}

} // namespace
