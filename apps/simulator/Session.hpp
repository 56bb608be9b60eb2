// Plays a session script against the demo application without a window, and records it: a
// picture per step, the LED-and-tone timeline, and from those an animated GIF, a WAV of the
// tones and an HTML storyboard.
#pragma once

#include "PaymentApp.hpp"
#include "Script.hpp"

#include <xui_host.hpp>

#include <string>
#include <vector>

namespace demo {

// One step: a script line that did something, and what the terminal showed and sounded.
struct Step {
    int number = 0;
    std::string action;  // the script line
    std::string picture; // file name, "07_key_ENTER.png"
    xui_host::Pixels screen;
    std::string leds;                // the LEDs after the step, '1' lit
    std::vector<std::string> events; // "+0123 ms leds 1100", "+0123 ms tone 1500 Hz 500 ms"
};

struct SessionResult {
    std::vector<Step> steps;
    std::vector<std::string> files; // what was written, in order
};

struct SessionOptions {
    AppOptions app;
    std::string out; // empty: nothing written
};

// Runs the script headless to its end. The clock is pinned (to 2026-11-22 09:30 until a clock
// line moves it) and so is the animation, and the indicator idles for a minute before its
// first flash, so that a session records the same on every run. Throws ScriptError for a
// line the application cannot play, and std::runtime_error when an output cannot be written.
SessionResult runSession(const std::vector<Command>& script, const SessionOptions& options);

// The timeline as written to timeline.txt; without times (for comparisons) when asked.
std::vector<std::string> timelineLines(const std::vector<Step>& steps, bool withTimes);

// The key code the graphics stand-in's queue takes for a script's key name.
int xuiKeyCode(const std::string& name);

} // namespace demo
