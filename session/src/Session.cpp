#include "ui/session/Session.hpp"

#include <osal/host.hpp>

#include <iomanip>
#include <sstream>

namespace ui::session {

namespace {

// 2026-11-22 09:30, local time.
constexpr int64_t kSessionClock = 1795339800;

std::string slug(const std::string& action) {
    std::string out;
    for (char c : action)
        out += std::isalnum(static_cast<unsigned char>(c)) || c == '-' ? c : '_';
    return out;
}

// Keys go in once the keypad has taken the one before; time passes for real; every step is
// pictured anyway (a shot only names its picture).
class Headless : public FrontEnd {
public:
    Headless(const Command*& current, std::chrono::milliseconds patience)
        : current_(current), patience_(patience) {}

    void press(int keyCode) override {
        xui_host::pushKey(keyCode);
        if (!xui_host::waitForKeysHandled(patience_))
            throw ScriptError("line " + std::to_string(current_->line) + " (" + current_->text +
                              "): the keypad took no key in " + std::to_string(patience_.count()) + " ms");
    }
    void wait(std::chrono::milliseconds time) override { std::this_thread::sleep_for(time); }
    void shot(const std::string&) override {}

private:
    const Command*& current_;
    std::chrono::milliseconds patience_;
};

} // namespace

bool presentNewFrame(ui::IGraphics& graphics, std::chrono::milliseconds timeout) {
    const uint64_t begun = xui_host::mainFramesBegun();
    graphics.update();
    if (!xui_host::waitForMainFrameBegunAfter(begun, timeout))
        return false;
    graphics.waitForDraw(); // the rest of the present: the other canvas hidden
    return true;
}

Session::Session(const SessionOptions& options) : options_(options) {
    if (!options.language.empty() && !osal::host::loadStrings("res/strings/" + options.language + ".txt"))
        throw std::runtime_error("Session: no strings for the language \"" + options.language +
                                 "\" (res/strings/" + options.language + ".txt)");
    osal::host::pinClock(kSessionClock);
    xui_host::pinAnimationTime(kPinnedAnimationTime);
    osal::host::setPseudoLocalization(options.pseudoLocalization);
    startMs_ = stepStartMs_ = endMs_ = steadyMs(Clock::now());
}

Session::~Session() {
    osal::host::setPseudoLocalization(0);
    xui_host::unpinAnimationTime();
    osal::host::unpinClock();
}

// Pictures the screen once what the step started has settled: every thread the platform sees
// done with what it was asked (the indicator's sequence or alert, a redraw), the idle flash lit
// while the indicator idles, and a frame begun after that presented.
void Session::capture(const std::string& action, const std::string& name) {
    Application& app = *app_;
    const auto fail = [&](const std::string& what) {
        throw std::runtime_error("step " + std::to_string(steps_.size()) + " (" + action +
                                 ") did not settle in " + std::to_string(options_.patience.count()) +
                                 " ms: " + what);
    };
    if (!osal::host::waitUntilSettled(options_.patience))
        fail(osal::host::unsettled());
    if (app.indicated() == ui::State::Idle && !recorder_.waitForLeds("1000", options_.patience))
        fail("the indicator idles, and its flash did not come");
    if (!presentNewFrame(app.graphics(), options_.patience))
        fail("no frame of the application's screen was presented");
    Step step;
    step.number = int(steps_.size());
    step.action = action;
    std::ostringstream picture;
    picture << std::setw(2) << std::setfill('0') << step.number << "_" << slug(name) << ".png";
    step.picture = picture.str();
    step.screen = xui_host::screen();
    for (const Overflow& overflow : fit_.check(xui_host::lastMainFrame()))
        step.overflows.push_back(describe(overflow));
    for (const auto& [at, what] : recorder_.take()) {
        std::ostringstream event;
        event << "+" << std::setw(4) << std::setfill('0') << std::max<int64_t>(0, at - stepStartMs_) << " ms "
              << what;
        step.events.push_back(event.str());
    }
    step.leds = recorder_.leds();
    steps_.push_back(std::move(step));
    if (options_.onStep)
        options_.onStep(steps_.back());
    stepStartMs_ = steadyMs(Clock::now());
}

void Session::moment(const std::string& what) {
    if (app_)
        capture("(" + what + ")", what);
}

const std::vector<Step>& Session::play(const std::vector<Command>& script, Application& app) {
    app_ = &app;
    const Command* current = nullptr;
    Headless frontEnd(current, options_.patience);
    try {
        capture("start", "start");
        for (const Command& c : script) {
            current = &c;
            apply(c, app, frontEnd);
            app.waitUntilIdle();
            if (c.kind != Command::Wait)
                capture(c.text, c.kind == Command::Shot ? c.word : c.text);
        }
    } catch (...) {
        app_ = nullptr;
        throw;
    }
    app_ = nullptr;
    endMs_ = steadyMs(Clock::now());
    return steps_;
}

std::vector<std::string> Session::write(const std::string& folder) {
    return writeRecording(folder, steps_, recorder_.beeps(), startMs_, endMs_);
}

} // namespace ui::session
