// Watches what a terminal's user sees and hears besides the screen: the contactless LEDs (every
// LED picture the library draws) and the tones, each with the time it came. Header-only, for the
// kit's Terminal and for session recorders alike. One at a time: it takes the stand-ins'
// call listener and beep handler for as long as it lives.
#pragma once

#include <osal/host.hpp>
#include <xui_host.hpp>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace ui::kit {

using Clock = std::chrono::steady_clock;

inline int64_t steadyMs(Clock::time_point t) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(t.time_since_epoch()).count();
}

// Watches the panel and the buzzer: every LED picture drawn and every beep, with its time.
class Recorder {
public:
    struct LedDraw {
        int64_t atMs;
        unsigned x;
        std::string image;
    };

    Recorder() {
        xui_host::setCallListener([this](const xui_host::Call& call) {
            if (call.function != "CanvasDrawImg")
                return;
            std::lock_guard<std::mutex> lock(mutex_);
            draws_.push_back({steadyMs(call.at), unsigned(std::stoul(call.args[1])), call.args.back()});
            lastActivity_ = Clock::now();
            changed_.notify_all();
        });
        osal::host::setBeepHandler([this](const osal::host::Beep& beep) {
            std::lock_guard<std::mutex> lock(mutex_);
            beeps_.push_back(beep);
            lastActivity_ = Clock::now();
            changed_.notify_all();
        });
    }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;
    ~Recorder() {
        xui_host::setCallListener(nullptr);
        osal::host::setBeepHandler(nullptr);
    }

    // What happened since the last call: LED patterns as they changed, and tones, in order.
    std::vector<std::pair<int64_t, std::string>> take() {
        collect();
        std::vector<std::pair<int64_t, std::string>> events(events_.begin(), events_.end());
        events_.clear();
        return events;
    }

    // Waits until the LEDs show pattern ("1000"), at most timeout; false if they never did.
    bool waitForLeds(const std::string& pattern, std::chrono::milliseconds timeout) {
        return waitUntil([&] { return leds_ == pattern; }, timeout);
    }
    // Waits until count tones have sounded since the recorder began, at most timeout.
    bool waitForTones(size_t count, std::chrono::milliseconds timeout) {
        return waitUntil([&] { return allBeeps_.size() >= count; }, timeout);
    }

    // Reads what the listeners saw into events and the LED pattern.
    void collect() {
        std::vector<LedDraw> draws;
        std::vector<osal::host::Beep> beeps;
        {
            std::lock_guard<std::mutex> lock(mutex_);
            draws.swap(draws_);
            beeps.swap(beeps_);
        }
        std::multimap<int64_t, std::string>& events = events_;
        for (const auto& beep : beeps) {
            events.emplace(beep.atMs, "tone " + std::to_string(beep.frequencyHz) + " Hz " +
                                          std::to_string(beep.durationMs) + " ms");
            allBeeps_.push_back(beep);
        }
        for (const auto& draw : draws) {
            // Resolved here, outside the stand-in's lock.
            if (xui_host::imageFile(draw.image).find("ctls/leds/") == std::string::npos)
                continue;
            if (!partial_.empty() && draw.x <= lastX_)
                partial_.clear(); // a redraw cut short: start again
            lastX_ = draw.x;
            partial_ += xui_host::imageFile(draw.image).find("green") != std::string::npos ? '1' : '0';
            if (partial_.size() == 4) {
                if (partial_ != leds_)
                    events.emplace(draw.atMs, "leds " + partial_);
                leds_ = partial_;
                partial_.clear();
            }
        }
    }

    // Waits until nothing has been drawn or sounded for quiet (at most five seconds): the
    // indicator's worker plays on after a state change returns (the alert tone, the redraw
    // after a sequence), and a step records all of it.
    void waitForQuiet(std::chrono::milliseconds quiet) {
        const auto start = Clock::now(), deadline = start + std::chrono::seconds(5);
        for (;;) {
            Clock::time_point last = start; // the worker may not have begun yet
            {
                std::lock_guard<std::mutex> lock(mutex_);
                last = std::max(last, lastActivity_);
            }
            const auto now = Clock::now();
            if (now - last >= quiet || now > deadline)
                return;
            std::this_thread::sleep_for(quiet - (now - last));
        }
    }

    const std::string& leds() const { return leds_; }
    const std::vector<osal::host::Beep>& beeps() const { return allBeeps_; }

private:
    // Woken by every draw and beep the listeners see, never by a clock.
    template <class Done> bool waitUntil(Done done, std::chrono::milliseconds timeout) {
        const auto deadline = Clock::now() + timeout;
        for (;;) {
            collect();
            if (done())
                return true;
            // What arrived since collect() is still in draws_ or beeps_: no wake-up is lost.
            std::unique_lock<std::mutex> lock(mutex_);
            if (!changed_.wait_until(lock, deadline, [&] { return !draws_.empty() || !beeps_.empty(); }))
                return false;
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<LedDraw> draws_;
    std::vector<osal::host::Beep> beeps_;
    std::vector<osal::host::Beep> allBeeps_;
    std::string partial_;
    unsigned lastX_ = 0;
    std::string leds_ = "0000";
    std::multimap<int64_t, std::string> events_;
    Clock::time_point lastActivity_;
};

} // namespace ui::kit
