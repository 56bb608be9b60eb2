// The testing kit's terminal: the library brought up on the host stand-ins for one test, keys
// pressed through the real keypad path, and a settle() that returns once what was asked for is
// on the panel, waiting on the stand-in's frame counter rather than on a clock.
//
// Host only: it links the stand-ins' controls, which no terminal has. Some state is the
// process's, not the terminal's, and outlives a Terminal: the header icons' pictures (shared by
// every instance and never cleared, so the first battery built decides where every battery is
// drawn), the published canvas sizes, and the multi-tap position. ui_discover_tests (CMake) runs
// each test in a process of its own, so that no test sees another's.
#pragma once

#include <ui/ui.hpp>

#include "ui/kit/Platform.hpp"
#include "ui/kit/Recorder.hpp"

#include <app/Screen.hpp>

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
    // virtual: it passes at once. The indicator's own sequences then play at once too.
    bool virtualTime = false;
    // The longest a press or a settle may take before it fails the test.
    std::chrono::milliseconds timeout{5000};
};

// An LED change or a tone, at milliseconds since the terminal came up: "leds 1100",
// "tone 1500 Hz 500 ms".
struct Event {
    int64_t atMs = 0;
    std::string what;
};

// A text the last settled frame drew, where it drew it (canvas coordinates).
struct DrawnText {
    std::string text;
    unsigned x = 0;
    unsigned y = 0;
    uint32_t colour = 0; // as Xui was given it, 0xAARRGGBB
};

// The texts that the CanvasDrawText calls among calls drew, unquoted, in order.
std::vector<DrawnText> drawnTexts(const std::vector<xui_host::Call>& calls);

// How GoogleTest prints them in a failure.
inline void PrintTo(const Event& event, std::ostream* out) {
    *out << "+" << event.atMs << " ms " << event.what;
}
inline void PrintTo(const DrawnText& text, std::ostream* out) {
    *out << "\"" << text.text << "\" at (" << text.x << ", " << text.y << ")";
}

class Terminal {
public:
    // Opens the display through ui::UserInterface and initialises it (keypad and window).
    explicit Terminal(const TerminalOptions& options = {});
    // Stops the library, then restores the stand-ins' defaults and forgets the services.
    ~Terminal();

    // What the library logged since the terminal came up.
    std::vector<std::string> log() const { return platform_->log(); }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

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
    // waited for. Throws std::runtime_error when no frame comes (no view set, say).
    void settle();

    // After settling: the panel's pixels.
    xui_host::Pixels screen();
    // The texts of one fresh frame, header and main area, in the order they were drawn (a view
    // that asks for redraws of its own meanwhile may add another frame's).
    std::vector<DrawnText> texts();

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
    TerminalOptions options_;
    std::unique_ptr<Platform> platform_;
    std::unique_ptr<Recorder> recorder_;
    std::vector<Event> events_;
    int64_t startMs_ = 0;
    std::function<void(bool)> onTap_;
    std::unique_ptr<ui::UserInterface> ui_;
    ui::IGraphics* graphics_ = nullptr;
    std::shared_ptr<app::StatusHeader> header_;
};

} // namespace ui::kit
