// The key queue. XuiGetKey waits here without holding the renderer's lock, so drawing and
// key waits run side by side as on the terminal.
#include "State.hpp"

#include <condition_variable>
#include <deque>

namespace xui_impl {
namespace {

struct Keys {
    std::mutex mutex;
    std::condition_variable arrived;
    std::deque<int> queue;
    bool closed = true; // GetKey returns at once while the display is not open
    std::chrono::milliseconds waitLimit{100};
    uint64_t read = 0;
    uint64_t waits = 0;                 // XuiGetKey calls begun
    uint64_t waitsAtRead = 0;           // the call that took the last key
    std::condition_variable readerBack; // a reader began another call
};

Keys& keys() {
    static Keys& k = *new Keys; // never destroyed, like the renderer state
    return k;
}

} // namespace

void keysOpen(bool open) {
    auto& k = keys();
    {
        std::lock_guard<std::mutex> lock(k.mutex);
        k.closed = !open;
    }
    k.arrived.notify_all();
}

void keysReset() {
    auto& k = keys();
    std::lock_guard<std::mutex> lock(k.mutex);
    k.queue.clear();
    k.waitLimit = std::chrono::milliseconds(100);
    k.read = 0;
    k.waits = 0;
    k.waitsAtRead = 0;
}

} // namespace xui_impl

using namespace xui_impl;

extern "C" int XuiHasKey(void) {
    auto& k = keys();
    std::lock_guard<std::mutex> lock(k.mutex);
    return k.queue.empty() ? 0 : 1;
}

extern "C" int XuiClearKey(void) {
    auto& k = keys();
    std::lock_guard<std::mutex> lock(k.mutex);
    k.queue.clear();
    return 0;
}

extern "C" int XuiGetKey(void) {
    auto& k = keys();
    std::unique_lock<std::mutex> lock(k.mutex);
    ++k.waits;
    k.readerBack.notify_all();
    auto ready = [&] { return !k.queue.empty() || k.closed; };
    if (k.waitLimit.count() == 0)
        k.arrived.wait(lock, ready);
    else
        k.arrived.wait_for(lock, k.waitLimit, ready);
    if (k.queue.empty())
        return XUI_KEY_NONE;
    int code = k.queue.front();
    k.queue.pop_front();
    ++k.read;
    k.waitsAtRead = k.waits;
    return code;
}

namespace xui_host {

void pushKey(int code) {
    auto& k = keys();
    {
        std::lock_guard<std::mutex> lock(k.mutex);
        k.queue.push_back(code);
    }
    k.arrived.notify_all();
}

void setKeyWaitLimit(std::chrono::milliseconds limit) {
    auto& k = keys();
    std::lock_guard<std::mutex> lock(k.mutex);
    k.waitLimit = limit;
}

uint64_t keysRead() {
    auto& k = keys();
    std::lock_guard<std::mutex> lock(k.mutex);
    return k.read;
}

bool waitForKeysHandled(std::chrono::milliseconds timeout) {
    auto& k = keys();
    std::unique_lock<std::mutex> lock(k.mutex);
    return k.readerBack.wait_for(lock, timeout, [&] { return k.queue.empty() && k.waits > k.waitsAtRead; });
}

uint64_t keyWaits() {
    auto& k = keys();
    std::lock_guard<std::mutex> lock(k.mutex);
    return k.waits;
}

} // namespace xui_host
