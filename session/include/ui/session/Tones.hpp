// The terminal's buzzer as a PC plays it: a square wave.
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

namespace ui::session {

constexpr int kToneSampleRate = 22050;

// Adds durationMs of a square wave at frequencyHz to samples from sample `at`, growing them.
inline void addTone(std::vector<int16_t>& samples, size_t at, unsigned frequencyHz, unsigned durationMs) {
    const size_t count = size_t(kToneSampleRate) * durationMs / 1000;
    if (samples.size() < at + count)
        samples.resize(at + count, 0);
    const double period = frequencyHz ? double(kToneSampleRate) / frequencyHz : 1;
    for (size_t i = 0; i < count; ++i)
        samples[at + i] = std::fmod(double(i), period) < period / 2 ? 4000 : -4000;
}

} // namespace ui::session
