#include "osal/device.hpp"
#include "Internal.hpp"
#include "Listeners.hpp"
#include "osal/host.hpp"
#include "osal/input.hpp"
#include "osal/timer.hpp"

#include "xui.h"

#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>

namespace {

struct DeviceState {
    std::mutex mutex;
    std::vector<osal::host::Beep> beeps;
    osal::detail::Listeners<osal::host::Beep> listeners;
    std::atomic<bool> battery{true};
    std::atomic<bool> ethernet{true};
    std::atomic<bool> virtualTime{false};
    std::atomic<int64_t> virtualNowMs{0};
};

DeviceState& dev() {
    // Never destroyed: other libraries' statics may beep or log at exit.
    static DeviceState& d = *new DeviceState;
    return d;
}

} // namespace

int64_t osal::monotonicMs() {
    auto& d = dev();
    if (d.virtualTime.load())
        return d.virtualNowMs.load();
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

Timer::Timer() : start_(osal::monotonicMs()) {}
int64_t Timer::elapsed() const {
    return osal::monotonicMs() - start_;
}
void Timer::restart() {
    start_ = osal::monotonicMs();
}

void device::beep(unsigned frequencyHz, unsigned durationMs) {
    auto& d = dev();
    osal::host::Beep b{frequencyHz, durationMs, osal::monotonicMs()};
    {
        std::lock_guard<std::mutex> lock(d.mutex);
        d.beeps.push_back(b);
    }
    osal::detail::noteDone("beep " + std::to_string(frequencyHz) + " Hz " + std::to_string(durationMs) +
                           " ms");
    d.listeners.notify(b);
}

void device::sleep(unsigned milliseconds) {
    if (osal::detail::passTimeAtOnce(std::chrono::milliseconds(milliseconds))) {
        osal::detail::noteDone("slept " + std::to_string(milliseconds) + " ms at once");
        return;
    }
    osal::detail::sleepBegins(milliseconds);
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    osal::detail::sleepEnds();
}

bool device::DeviceInformation::batterySupported() {
    return dev().battery.load();
}
bool device::DeviceInformation::ethSupported() {
    return dev().ethernet.load();
}

namespace device::input {

Key getKeyFromSystemKey(int code) {
    if (code >= '1' && code <= '9')
        return Key(KEY_1 + (code - '1'));
    switch (code) {
    case XUI_KEY_0:
        return KEY_0;
    case XUI_KEY_ENTER:
        return KEY_ENTER;
    case XUI_KEY_CANCEL:
        return KEY_CANCEL;
    case XUI_KEY_CLEAR:
        return KEY_CLEAR;
    case XUI_KEY_UP:
        return KEY_UP;
    case XUI_KEY_DOWN:
        return KEY_DOWN;
    case XUI_KEY_MENU:
        return KEY_MENU;
    case XUI_KEY_ALPHA:
        return KEY_ALPHA;
    case XUI_KEY_STAR:
        return KEY_STAR;
    case XUI_KEY_HASH:
        return KEY_HASH;
    case XUI_KEY_F1:
        return KEY_F1;
    case XUI_KEY_F1 + 1:
        return KEY_F2;
    case XUI_KEY_F1 + 2:
        return KEY_F3;
    case XUI_KEY_F1 + 3:
        return KEY_F4;
    case XUI_KEY_POWER:
        return KEY_POWER;
    default:
        return KEY_NONE;
    }
}

std::string getKeyString(Key key) {
    if (key >= KEY_1 && key <= KEY_9)
        return std::string(1, char('1' + (key - KEY_1)));
    if (key == KEY_0)
        return "0";
    if (key == KEY_STAR)
        return "*";
    if (key == KEY_HASH)
        return "#";
    return "";
}

std::string getKeyName(Key key) {
    static const char* names[] = {"NONE", "ENTER", "CANCEL", "CLEAR", "UP", "DOWN", "MENU", "ALPHA",
                                  "STAR", "HASH",  "F1",     "F2",    "F3", "F4",   "POWER"};
    if (key >= KEY_1 && key <= KEY_0)
        return getKeyString(key);
    if (key == KEY_NONE)
        return names[0];
    if (key >= KEY_ENTER && key <= KEY_POWER)
        return names[key - KEY_ENTER + 1];
    return "KEY(" + std::to_string(int(key)) + ")";
}

} // namespace device::input

namespace osal::detail {

bool passTimeAtOnce(std::chrono::milliseconds time) {
    auto& d = dev();
    if (!d.virtualTime.load())
        return false;
    d.virtualNowMs += time.count();
    return true;
}

void resetDevice() {
    auto& d = dev();
    std::lock_guard<std::mutex> lock(d.mutex);
    d.beeps.clear(); // listeners stay: they belong to whoever added them
    d.battery = true;
    d.ethernet = true;
    d.virtualTime = false;
    d.virtualNowMs = 0;
}
} // namespace osal::detail

namespace osal::host {

void setCapabilities(bool battery, bool ethernet) {
    dev().battery = battery;
    dev().ethernet = ethernet;
}

void useVirtualTime(bool enabled) {
    auto& d = dev();
    if (enabled && !d.virtualTime.load()) {
        d.virtualNowMs = monotonicMs(); // continue from now, so running timers stay sane
        d.virtualTime = true;
    } else if (!enabled) {
        d.virtualTime = false;
    }
}

void advanceTime(std::chrono::milliseconds by) {
    dev().virtualNowMs += by.count();
}

std::vector<Beep> beeps() {
    auto& d = dev();
    std::lock_guard<std::mutex> lock(d.mutex);
    return d.beeps;
}

void clearBeeps() {
    auto& d = dev();
    std::lock_guard<std::mutex> lock(d.mutex);
    d.beeps.clear();
}

int addBeepListener(std::function<void(const Beep&)> listener) {
    return dev().listeners.add(std::move(listener));
}

void removeBeepListener(int id) {
    dev().listeners.remove(id);
}

} // namespace osal::host
