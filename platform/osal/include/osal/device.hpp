// The terminal's buzzer, delays and capabilities.
#pragma once

namespace device {

// Sounds the buzzer; returns at once.
void beep(unsigned frequencyHz, unsigned durationMs);
// Blocks the calling thread.
void sleep(unsigned milliseconds);

class DeviceInformation {
public:
    static bool batterySupported();
    static bool ethSupported();
};

} // namespace device
