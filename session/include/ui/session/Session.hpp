// Plays a session script against an application without a window, and records it (see
// Recording): a step per script line and per moment the application names, each with its
// picture, the LEDs and what the indicator did and sounded meanwhile.
//
//   ui::session::Session session;             // before the application: it pins what it reads
//   MyApp app;                             // an Application
//   session.play(ui::session::loadScript("sale.session"), app);
//   session.write("out/sale");             // pictures, GIF, timeline, WAV, storyboard
#pragma once

#include "ui/session/Fit.hpp"
#include "ui/session/Recorder.hpp"
#include "ui/session/Recording.hpp"
#include "ui/session/Script.hpp"

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace ui::session {

// Returns once a frame of the main area begun after this call has been drawn and presented
// (the canvas it replaced hidden, so the panel read next shows it alone), waiting on the
// stand-in's frame counters (header redraws do not move them); false when none
// came within timeout. A frame begun before the call does not count, whenever it is shown.
bool presentNewFrame(ui::IGraphics& graphics, std::chrono::milliseconds timeout);

// The animations' time a session pictures every animation at; a window playing a script pins
// the same, so that its pictures match a session's.
constexpr std::chrono::milliseconds kPinnedAnimationTime{900};

struct SessionOptions {
    double pseudoLocalization = 0; // see osal::host::setPseudoLocalization; 0: off
    // A language ("de"): the strings of res/strings/<language>.txt, read when the session
    // begins, replace the table (make the session before the application, which reads them as
    // it builds its screens). Only the strings change: currency and date formats are the
    // terminal's settings. Empty: the strings as the program loaded them.
    std::string language;
    // The longest a step may take to settle before the session fails, naming what it waited for.
    std::chrono::milliseconds patience{5000};
    // Called with each step as it is pictured, on the thread that plays (or on the application's,
    // for a moment), before the next line starts: a front end shows it, and may hold the session
    // there until it has.
    std::function<void(const Step&)> onStep = nullptr;
};

class Session {
public:
    // Pins, for as long as the session lives, the clock (2026-11-22 09:30 until a clock line
    // moves it), the animations' time, and the strings' pseudo-localization, and starts
    // watching the LEDs and the buzzer. Make it before the application, whose screens read
    // them as they are built.
    explicit Session(const SessionOptions& options = {});
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Runs the script to its end, the same on every run: pictures the start, then each line
    // once it has settled (a wait line only lets time pass): the key or the tap handled, the
    // application idle, every thread the platform sees done with what the line asked of it (the
    // indicator's sequences and alerts played and their redraws presented), and a frame begun
    // after that presented. A key is pressed once the keypad has taken the one before. Throws
    // ScriptError for a line the application cannot play, and std::runtime_error for a step that
    // does not settle, naming what it waited for. For an idle flash to be pictured the same on
    // every run, give the indicator a short idle period and a long flash (the demo: 1 s and 10
    // minutes).
    const std::vector<Step>& play(const std::vector<Command>& script, Application& app);
    // A moment no line ends on ("processing"): pictured now, once it has settled. The
    // application calls it on its own thread while play() waits for it to be idle.
    void moment(const std::string& what);

    const std::vector<Step>& steps() const { return steps_; }
    // Writes every picture, session.gif, timeline.txt, tones.wav and storyboard.html under
    // folder and returns their paths; throws std::runtime_error when one cannot be written.
    std::vector<std::string> write(const std::string& folder);

private:
    void capture(const std::string& action, const std::string& name);

    SessionOptions options_;
    Recorder recorder_;
    FitCheck fit_;
    Application* app_ = nullptr;
    std::vector<Step> steps_;
    int64_t startMs_ = 0;
    int64_t stepStartMs_ = 0;
    int64_t endMs_ = 0;
};

} // namespace ui::session
