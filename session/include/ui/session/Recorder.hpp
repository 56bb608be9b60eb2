// Watches what a terminal's user sees and hears besides the screen: the contactless LEDs (every
// LED picture the library draws) and the tones, each with the time it came, in the order they
// came. Any number may watch at once (a Session and a Terminal, say), made and destroyed in any
// order: each adds listeners of its own to the stand-ins.
#pragma once

#include <osal/host.hpp>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace ui::session {

using Clock = std::chrono::steady_clock;

inline int64_t steadyMs(Clock::time_point t) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(t.time_since_epoch()).count();
}

class Recorder {
public:
    Recorder();
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    // What happened since the last call, in order, at steady-clock milliseconds: LED patterns as
    // they changed ("leds 1100") and tones ("tone 1500 Hz 500 ms").
    std::vector<std::pair<int64_t, std::string>> take();

    // Waits until the LEDs show pattern ("1000"), at most timeout; false if they never did.
    bool waitForLeds(const std::string& pattern, std::chrono::milliseconds timeout);
    // Waits until count tones have sounded since the recorder began, at most timeout.
    bool waitForTones(size_t count, std::chrono::milliseconds timeout);

    // The LEDs as last drawn, '1' lit.
    std::string leds();
    // Every tone since the recorder began, each at the steady clock's milliseconds (atMs).
    std::vector<osal::host::Beep> beeps();

private:
    // An LED picture drawn or a tone sounded, as the listeners saw it.
    struct Seen {
        int64_t atMs = 0;
        unsigned x = 0;        // an LED's
        std::string image;     // an LED's picture, as the trace names it; empty for a tone
        osal::host::Beep beep; // a tone's
    };
    // Reads what the listeners saw into the events and the LED pattern; collecting_ held.
    void collect();
    template <class Done> bool waitUntil(Done done, std::chrono::milliseconds timeout);

    int callListener_ = 0;
    int beepListener_ = 0;
    // Only for seen_, which the listeners fill (the call listener under the stand-in's lock).
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<Seen> seen_;
    // For the rest: held while an image's file is looked up in the stand-in, never the other way.
    std::mutex collecting_;
    std::vector<std::pair<int64_t, std::string>> events_;
    std::vector<osal::host::Beep> beeps_;
    std::string partial_;
    unsigned lastX_ = 0;
    std::string leds_ = "0000";
};

} // namespace ui::session
