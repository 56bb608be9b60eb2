#include "ui/kit/Session.hpp"

#include <osal/host.hpp>

#include <iomanip>
#include <sstream>

namespace ui::kit {

namespace {

// 2026-11-22 09:30, local time.
constexpr int64_t kSessionClock = 1795339800;
constexpr std::chrono::seconds kPatience{5};

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
    explicit Headless(const Command*& current) : current_(current) {}

    void press(int keyCode) override {
        xui_host::pushKey(keyCode);
        if (!xui_host::waitForKeysHandled(kPatience))
            throw ScriptError("line " + std::to_string(current_->line) + " (" + current_->text +
                              "): the keypad took no key in 5 seconds");
    }
    void wait(std::chrono::milliseconds time) override { std::this_thread::sleep_for(time); }
    void shot(const std::string&) override {}

private:
    const Command*& current_;
};

} // namespace

bool presentNewFrame(ui::IGraphics& graphics, std::chrono::milliseconds timeout) {
    graphics.waitForDraw();
    const uint64_t frames = xui_host::mainFramesShown();
    graphics.update();
    if (!xui_host::waitForMainFrames(frames + 1, timeout))
        return false;
    graphics.waitForDraw(); // the rest of the present step: the other canvas hidden
    return true;
}

Session::Session(const SessionOptions& options) : options_(options) {
    osal::host::pinClock(kSessionClock);
    xui_host::pinAnimationTime(std::chrono::milliseconds(900));
    osal::host::setPseudoLocalization(options.pseudoLocalization);
    startMs_ = stepStartMs_ = endMs_ = steadyMs(Clock::now());
}

Session::~Session() {
    osal::host::setPseudoLocalization(0);
    xui_host::unpinAnimationTime();
    osal::host::unpinClock();
}

// Pictures the screen once the application is done and the indicator has settled: after a
// state change, until it is quiet; while it idles, until the flash is lit.
void Session::capture(const std::string& action, const std::string& name) {
    Application& app = *app_;
    if (app.indicatorChanges() != changesSeen_)
        recorder_.waitForQuiet(options_.quiet);
    changesSeen_ = app.indicatorChanges();
    if (app.indicated() == ui::State::Idle && !recorder_.waitForLeds("1000", kPatience))
        throw std::runtime_error(action + ": the idle flash did not come");
    if (!presentNewFrame(app.graphics(), kPatience))
        throw std::runtime_error("no frame of the application's screen came in 5 seconds");
    Step step;
    step.number = int(steps_.size());
    step.action = action;
    std::ostringstream picture;
    picture << std::setw(2) << std::setfill('0') << step.number << "_" << slug(name) << ".png";
    step.picture = picture.str();
    step.screen = xui_host::screen();
    for (const auto& [at, what] : recorder_.take()) {
        std::ostringstream event;
        event << "+" << std::setw(4) << std::setfill('0') << std::max<int64_t>(0, at - stepStartMs_) << " ms "
              << what;
        step.events.push_back(event.str());
    }
    step.leds = recorder_.leds();
    stepStartMs_ = steadyMs(Clock::now());
    steps_.push_back(std::move(step));
}

void Session::moment(const std::string& what) {
    if (app_)
        capture("(" + what + ")", what);
}

const std::vector<Step>& Session::play(const std::vector<Command>& script, Application& app) {
    app_ = &app;
    const Command* current = nullptr;
    Headless frontEnd(current);
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

std::vector<std::string> Session::write(const std::string& folder) const {
    return writeRecording(folder, steps_, recorder_.beeps(), startMs_, endMs_);
}

} // namespace ui::kit
