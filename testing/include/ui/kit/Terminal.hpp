// The testing kit's terminal: the library brought up on the host stand-ins for one test, keys
// pressed through the real keypad path, and a settle() that returns once what was asked for is
// on the panel, waiting on the stand-in's frame counters rather than on a clock.
//
// Host only: it links the stand-ins' controls, which no terminal has. Some state is the
// process's, not the terminal's, and outlives a Terminal: the header icons' pictures (shared by
// every instance and never cleared, so the first battery built decides where every battery is
// drawn), the published canvas sizes, and the multi-tap position. ui_discover_tests (CMake) runs
// each test in a process of its own, so that no test sees another's.
#pragma once

#include <ui/ui.hpp>

#include "ui/kit/Platform.hpp"
#include "ui/session/Fit.hpp"
#include "ui/session/Recorder.hpp"

#include <ui/app/Screen.hpp>

#include <xui_host.hpp>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace ui::kit {

struct TerminalOptions {
    unsigned panelWidth = 320;
    unsigned panelHeight = 240;
    int rotate = 0;
    int statusbar = 32;
    // Local seconds since 1970, pinned for the whole test: 2026-11-22 09:30.
    int64_t clock = 1795339800;
    // Read with osal::host::loadStrings; empty keeps the stand-in's table as it is.
    std::string strings = "res/strings/en.txt";
    // Every string this many times as long, accented and bracketed, as a long translation would
    // make it (see osal::host::setPseudoLocalization); 0: as written.
    double pseudoLocalization = 0;
    // The demo's status header (app::StatusHeader: clock, battery, signal, Ethernet, flight
    // mode, offline store, update) on the status bar, changed with header(); false: none.
    bool statusHeader = false;
    // Time that passes with letTimePass (timers, the multi-tap interval, device::sleep) is
    // virtual: it passes at once. The indicator's sequences then play at once too (its pauses
    // are waits on an event nobody signals, which virtual time passes at once); its idle period
    // is a wait for a state change and still takes real time.
    bool virtualTime = false;
    // The longest a press or a settle may take before it fails the test.
    std::chrono::milliseconds timeout{5000};
    // A language ("de"): its strings file, beside strings' and named after it, is read instead
    // ("res/strings/de.txt"). Only the strings change: the currency and date formats are the
    // terminal's settings. Empty: strings as they are.
    std::string language;
};

// An LED change or a tone, at milliseconds since the terminal came up: "leds 1100",
// "tone 1500 Hz 500 ms".
struct Event {
    int64_t atMs = 0;
    std::string what;
};

// How GoogleTest prints them in a failure.
inline void PrintTo(const Event& event, std::ostream* out) {
    *out << "+" << event.atMs << " ms " << event.what;
}

// The texts of one frame. For a text laid out for display since the terminal came up that the
// frame does not draw as one line, howShown says what it makes of it ("drawn in 2 lines: ...",
// "cut: lost ...", or that nothing of it was drawn; empty for any other text): ShowsText explains
// a missing text with it.
struct Texts : std::vector<session::DrawnText> {
    std::function<std::string(const std::string& text)> howShown;
};

class Terminal {
public:
    // Opens the display through ui::UserInterface and initialises it (keypad and window).
    explicit Terminal(const TerminalOptions& options = {});
    // Stops the library, then restores the stand-ins' defaults and forgets the services.
    ~Terminal();

    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    // What the library logged since the terminal came up.
    std::vector<std::string> log() const { return platform_->log(); }
    // An exception the library caught and logged (a key handler's, a draw's, a thread body's)
    // fails the test when the terminal goes, with what was logged, unless the test takes it
    // here first: "GraphicsDevice:216: what() of the exception". Returns those not taken yet.
    std::vector<std::string> takeExceptions();

    ui::UserInterface& ui() { return *ui_; }
    ui::IGraphics& graphics() { return *graphics_; }

    // Makes view the current screen and settles.
    void show(const std::shared_ptr<ui::IContainer>& view);

    // One key (an XUI_KEY_* code or a digit character) through Xui, the keypad thread and the
    // window to the view's handler; returns once the keypad thread is done with it. Throws
    // std::runtime_error on time-out.
    void press(int xuiKeyCode);
    // Digits, '*' and '#', each pressed and handled before the next, with pause passing
    // (letTimePass) after each: the multi-tap interval is 750 ms, so a pause that long makes
    // the same key twice two characters.
    void type(const std::string& digits, std::chrono::milliseconds pause = std::chrono::milliseconds(0));
    // Lets time pass: at once in virtual time, or else for real (the indicator's sequences
    // play in real time).
    void letTimePass(std::chrono::milliseconds time);

    // The status header, with TerminalOptions::statusHeader; its changes show at the next
    // settle(). Throws std::logic_error without it.
    app::StatusHeader& header();

    // Returns once every update() and updateHeader() asked for before the call has been drawn
    // and presented: the header is redrawn here, and a main frame begun after this call is
    // waited for. Throws std::runtime_error when no frame comes (no view set, or a draw that
    // threw: the message names what was logged).
    void settle();

    // After settling: the panel's pixels.
    xui_host::Pixels screen();
    // After settling: the texts of exactly one presented frame, the header's as that frame's
    // present showed them, then the main area's, each in the order it was drawn; the same
    // while the screen or the indicator redraws on threads of their own.
    Texts texts();
    // After settling, what of that frame does not fit: texts drawn past an edge, and texts given
    // since the terminal came up of which it draws only the start (see Fit.hpp). Check it with
    // FitsOnScreen (Matchers.hpp).
    std::vector<session::Overflow> fit();

    // The contactless LEDs as last drawn, '1' lit ("1000"); waitForLeds blocks until they show
    // pattern (the indicator's worker draws them on its own thread), false on time-out.
    std::string leds();
    bool waitForLeds(const std::string& pattern);
    // Blocks until count tones have sounded since the terminal came up (the indicator's alert
    // plays on its worker after the state change returns); false on time-out.
    bool waitForTones(size_t count);
    // Every LED change and tone since the terminal came up, in order.
    std::vector<Event> timeline();

    // The card reader: tap() hands approved to the handler the application registered.
    void onTap(std::function<void(bool approved)> handler) { onTap_ = std::move(handler); }
    void tap(bool approved = true);

private:
    // The exceptions logged and not taken, for a message.
    std::string loggedExceptions() const;
    // Settles and returns the frame.
    xui_host::Frame frame();

    TerminalOptions options_;
    std::unique_ptr<Platform> platform_;
    std::unique_ptr<session::Recorder> recorder_;
    std::shared_ptr<session::FitCheck> fitCheck_; // shared with the texts read, which may outlive it
    size_t exceptionsTaken_ = 0;
    std::vector<Event> events_;
    int64_t startMs_ = 0;
    std::function<void(bool)> onTap_;
    std::unique_ptr<ui::UserInterface> ui_;
    ui::IGraphics* graphics_ = nullptr;
    std::shared_ptr<app::StatusHeader> header_;
};

} // namespace ui::kit
