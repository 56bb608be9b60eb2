// Recording a session: what the terminal showed and sounded at each step, and the files made of
// it (a picture per step, an animated GIF, the LED-and-tone timeline, a WAV of the tones and an
// HTML storyboard). Playing a session is Session's; this only watches and writes.
#pragma once

#include <osal/host.hpp>
#include <xui_host.hpp>

#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace ui::session {

// One step: a script line or a moment of the application, and what the terminal showed and
// sounded.
struct Step {
    int number = 0;
    std::string action;  // the script line, or the moment
    std::string picture; // file name, "07_key_ENTER.png"
    xui_host::Pixels screen;
    std::string leds;                // the LEDs after the step, '1' lit
    std::vector<std::string> events; // "+0123 ms leds 1100", "+0123 ms tone 1500 Hz 500 ms"
    // Texts on the screen that do not fit (see Fit.hpp), one line each.
    std::vector<std::string> overflows;
};

// The timeline as written to timeline.txt, a step's overflows after its events ("  overflow
// ..."); without times (for comparisons) when asked.
std::vector<std::string> timelineLines(const std::vector<Step>& steps, bool withTimes);

// Writes every picture, session.gif, timeline.txt, tones.wav and storyboard.html under folder
// and returns their paths; throws std::runtime_error when one cannot be written.
std::vector<std::string> writeRecording(const std::string& folder, const std::vector<Step>& steps,
                                        const std::vector<osal::host::Beep>& beeps, int64_t startMs,
                                        int64_t endMs);

} // namespace ui::session
