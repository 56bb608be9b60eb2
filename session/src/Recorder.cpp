#include "ui/session/Recorder.hpp"

#include <xui_host.hpp>

namespace ui::session {

Recorder::Recorder() {
    // Both listeners append to one list as things happen: one clock, and the order they came in.
    callListener_ = xui_host::addCallListener([this](const xui_host::Call& call) {
        if (call.function != "CanvasDrawImg")
            return;
        Seen seen;
        seen.atMs = steadyMs(call.at);
        seen.x = unsigned(std::stoul(call.args[1]));
        seen.image = call.args.back();
        {
            std::lock_guard<std::mutex> lock(mutex_);
            seen_.push_back(std::move(seen));
        }
        changed_.notify_all();
    });
    beepListener_ = osal::host::addBeepListener([this](const osal::host::Beep& beep) {
        Seen seen;
        seen.atMs = steadyMs(Clock::now());
        seen.beep = beep;
        seen.beep.atMs = seen.atMs; // the platform's clock may be virtual: keep one clock
        {
            std::lock_guard<std::mutex> lock(mutex_);
            seen_.push_back(std::move(seen));
        }
        changed_.notify_all();
    });
}

Recorder::~Recorder() {
    xui_host::removeCallListener(callListener_);
    osal::host::removeBeepListener(beepListener_);
}

// The call listener runs with the stand-in's lock held, so an image's file is looked up here.
void Recorder::collect() {
    std::vector<Seen> seen;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        seen.swap(seen_);
    }
    for (const Seen& s : seen) {
        if (s.image.empty()) {
            events_.emplace_back(s.atMs, "tone " + std::to_string(s.beep.frequencyHz) + " Hz " +
                                             std::to_string(s.beep.durationMs) + " ms");
            beeps_.push_back(s.beep);
            continue;
        }
        const std::string file = xui_host::imageFile(s.image);
        if (file.find("ctls/leds/") == std::string::npos)
            continue;
        if (!partial_.empty() && s.x <= lastX_)
            partial_.clear(); // a redraw cut short: start again
        lastX_ = s.x;
        partial_ += file.find("green") != std::string::npos ? '1' : '0';
        if (partial_.size() == 4) {
            if (partial_ != leds_)
                events_.emplace_back(s.atMs, "leds " + partial_);
            leds_ = partial_;
            partial_.clear();
        }
    }
}

std::vector<std::pair<int64_t, std::string>> Recorder::take() {
    std::lock_guard<std::mutex> lock(collecting_);
    collect();
    return std::exchange(events_, {});
}

std::string Recorder::leds() {
    std::lock_guard<std::mutex> lock(collecting_);
    collect();
    return leds_;
}

std::vector<osal::host::Beep> Recorder::beeps() {
    std::lock_guard<std::mutex> lock(collecting_);
    collect();
    return beeps_;
}

// Woken by every draw and beep the listeners see, never by a clock.
template <class Done> bool Recorder::waitUntil(Done done, std::chrono::milliseconds timeout) {
    const auto deadline = Clock::now() + timeout;
    for (;;) {
        {
            std::lock_guard<std::mutex> lock(collecting_);
            collect();
            if (done())
                return true;
        }
        // What arrived since it was collected is in seen_ already: no wake-up is lost.
        std::unique_lock<std::mutex> lock(mutex_);
        if (!changed_.wait_until(lock, deadline, [&] { return !seen_.empty(); }))
            return false;
    }
}

bool Recorder::waitForLeds(const std::string& pattern, std::chrono::milliseconds timeout) {
    return waitUntil([&] { return leds_ == pattern; }, timeout);
}

bool Recorder::waitForTones(size_t count, std::chrono::milliseconds timeout) {
    return waitUntil([&] { return beeps_.size() >= count; }, timeout);
}

} // namespace ui::session
