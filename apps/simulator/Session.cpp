#include "Session.hpp"

#include <osal/host.hpp>

#include <iomanip>
#include <optional>
#include <sstream>

namespace demo {

namespace {

// 2026-11-22 09:30, local time.
constexpr int64_t kSessionClock = 1795339800;

std::string slug(const std::string& action) {
    std::string out;
    for (char c : action)
        out += std::isalnum(static_cast<unsigned char>(c)) || c == '-' ? c : '_';
    return out;
}

// A frame of the current screen begun after this call has been drawn and presented. (Header
// redraws present frames too, so the panel's frame count cannot tell.)
void settleFrame(PaymentApp& app) {
    ui::IGraphics& graphics = app.graphics();
    graphics.waitForDraw(); // a draw in progress is from before the request
    const int drawn = app.framesDrawn();
    graphics.update();
    const auto deadline = Clock::now() + 5s;
    while (app.framesDrawn() == drawn && Clock::now() < deadline)
        std::this_thread::sleep_for(1ms);
    graphics.waitForDraw(); // and presented
}

// The headless front end: a key is pressed once the application has taken it, time passes
// for real, and every step is pictured anyway (a shot only names its picture).
class Headless : public FrontEnd {
public:
    Headless(PaymentApp& app, const Command*& current) : app_(app), current_(current) {}

    void press(int keyCode) override {
        const int before = app_.keysReceived();
        xui_host::pushKey(keyCode);
        const auto deadline = Clock::now() + 5s;
        while (app_.keysReceived() == before) {
            if (Clock::now() > deadline)
                throw ScriptError("line " + std::to_string(current_->line) + " (" + current_->text +
                                  "): the application took no key in 5 seconds");
            std::this_thread::sleep_for(1ms);
        }
    }
    void wait(std::chrono::milliseconds time) override { std::this_thread::sleep_for(time); }
    void shot(const std::string&) override {}

private:
    PaymentApp& app_;
    const Command*& current_;
};

// The fixed clock and animation of a recording, and its strings, released however the
// session ends.
struct PinnedTime {
    explicit PinnedTime(double pseudoLocalization) {
        osal::host::pinClock(kSessionClock);
        xui_host::pinAnimationTime(900ms);
        osal::host::setPseudoLocalization(pseudoLocalization);
    }
    ~PinnedTime() {
        osal::host::setPseudoLocalization(0);
        xui_host::unpinAnimationTime();
        osal::host::unpinClock();
    }
};

} // namespace

SessionResult runSession(const std::vector<Command>& script, const SessionOptions& options) {
    std::optional<PinnedTime> pinned(std::in_place, options.pseudoLocalization);
    AppOptions appOptions = options.app;
    appOptions.indicator.idlePeriodMs = 1000;
    appOptions.indicator.idleFlashMs = 600000;
    // Longer than the silence inside an alert tone.
    const std::chrono::milliseconds quiet(appOptions.indicator.alertToneDurationMs +
                                          appOptions.indicator.alertTonePauseMs + 200);

    SessionResult result;
    Recorder recorder;
    const auto start = Clock::now();
    int64_t stepStart = steadyMs(start);
    PaymentApp* running = nullptr;
    int changesSeen = 0;
    // Pictures the screen once the application is done and the indicator has settled: after a
    // state change, until it is quiet; while it idles, until the flash is lit.
    const auto capture = [&](const std::string& action, const std::string& name) {
        PaymentApp& app = *running;
        if (app.indicatorChanges() != changesSeen)
            recorder.waitForQuiet(quiet);
        changesSeen = app.indicatorChanges();
        if (app.indicated() == ui::State::Idle && !recorder.waitForLeds("1000", 5s))
            throw std::runtime_error(action + ": the idle flash did not come");
        settleFrame(app);
        Step step;
        step.number = int(result.steps.size());
        step.action = action;
        std::ostringstream picture;
        picture << std::setw(2) << std::setfill('0') << step.number << "_" << slug(name) << ".png";
        step.picture = picture.str();
        step.screen = xui_host::screen();
        for (const auto& [at, what] : recorder.take()) {
            std::ostringstream event;
            event << "+" << std::setw(4) << std::setfill('0') << std::max<int64_t>(0, at - stepStart)
                  << " ms " << what;
            step.events.push_back(event.str());
        }
        step.leds = recorder.leds();
        stepStart = steadyMs(Clock::now());
        result.steps.push_back(std::move(step));
    };
    // The moments of a sale come on the application's thread, while the script's line waits
    // for it: one at a time.
    appOptions.moment = [&](const std::string& what) { capture("(" + what + ")", what); };
    {
        PaymentApp app(appOptions);
        running = &app;
        const Command* current = nullptr;
        Headless frontEnd(app, current);
        capture("start", "start");
        for (const Command& c : script) {
            current = &c;
            apply(c, app, frontEnd);
            app.waitUntilIdle();
            if (c.kind != Command::Wait)
                capture(c.text, c.kind == Command::Shot ? c.word : c.text);
        }
    }
    const int64_t endMs = steadyMs(Clock::now());
    pinned.reset();

    if (!options.out.empty())
        result.files = writeRecording(options.out, result.steps, recorder.beeps(), steadyMs(start), endMs);
    return result;
}

} // namespace demo
