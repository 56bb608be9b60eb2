// The call trace and the frame counter, for tests that assert what the library asked for.
#include "State.hpp"

#include <condition_variable>
#include <cstdio>
#include <functional>
#include <memory>

namespace xui_impl {
namespace {

struct Trace {
    std::mutex mutex;
    std::condition_variable frameShown;
    bool enabled = false;
    std::vector<xui_host::Call> calls;
    std::shared_ptr<const std::function<void(const xui_host::Call&)>> listener;
    uint64_t frames = 0;
    uint64_t mainFrames = 0;
};

Trace& tr() {
    static Trace& t = *new Trace; // never destroyed
    return t;
}

} // namespace

bool tracing() {
    auto& t = tr();
    std::lock_guard<std::mutex> lock(t.mutex);
    return t.enabled || t.listener;
}

void record(const char* function, std::vector<std::string> args) {
    auto& t = tr();
    xui_host::Call call{function, std::move(args), std::chrono::steady_clock::now()};
    std::shared_ptr<const std::function<void(const xui_host::Call&)>> listener;
    {
        std::lock_guard<std::mutex> lock(t.mutex);
        listener = t.listener;
        if (t.enabled)
            t.calls.push_back(call);
    }
    if (listener)
        (*listener)(call);
}

void noteFrameShown(bool mainArea) {
    auto& t = tr();
    {
        std::lock_guard<std::mutex> lock(t.mutex);
        ++t.frames;
        if (mainArea)
            ++t.mainFrames;
    }
    t.frameShown.notify_all();
}

void traceReset() {
    auto& t = tr();
    std::lock_guard<std::mutex> lock(t.mutex);
    t.enabled = false;
    t.listener.reset();
    t.calls.clear();
    t.frames = 0;
    t.mainFrames = 0;
}

std::string arg(const void* handle) {
    if (!handle)
        return "null";
    auto& s = state();
    if (handle == s.root)
        return "root";
    if (handle == s.statusbar)
        return "statusbar";
    if (auto* c = findCanvas(static_cast<const XuiWindow*>(handle)))
        return c->name;
    if (auto* i = findImage(static_cast<const XuiImg*>(handle)))
        return "i" + std::to_string(i->id);
    if (auto* f = findFont(static_cast<const XuiFont*>(handle)))
        return "f" + std::to_string(f->id);
    return "unknown";
}

std::string arg(long long value) {
    return std::to_string(value);
}

std::string argHex(uint32_t value) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "0x%08x", value);
    return buf;
}

std::string argText(const char* text) {
    if (!text)
        return "null";
    std::string out = "\"";
    for (const char* p = text; *p; ++p) {
        if (*p == '"' || *p == '\\')
            out += '\\';
        out += *p;
    }
    return out + "\"";
}

} // namespace xui_impl

namespace xui_host {

std::string Call::str() const {
    std::string out = function + "(";
    for (size_t i = 0; i < args.size(); ++i)
        out += (i ? ", " : "") + args[i];
    return out + ")";
}

void setTracing(bool enabled) {
    auto& t = xui_impl::tr();
    std::lock_guard<std::mutex> lock(t.mutex);
    t.enabled = enabled;
}

void setCallListener(std::function<void(const Call&)> listener) {
    auto& t = xui_impl::tr();
    std::lock_guard<std::mutex> lock(t.mutex);
    if (listener)
        t.listener = std::make_shared<const std::function<void(const Call&)>>(std::move(listener));
    else
        t.listener.reset();
}

void clearTrace() {
    auto& t = xui_impl::tr();
    std::lock_guard<std::mutex> lock(t.mutex);
    t.calls.clear();
}

std::vector<Call> trace() {
    auto& t = xui_impl::tr();
    std::lock_guard<std::mutex> lock(t.mutex);
    return t.calls;
}

std::vector<Call> trace(const std::string& function) {
    std::vector<Call> out;
    for (auto& c : trace())
        if (c.function == function)
            out.push_back(c);
    return out;
}

std::string nameOf(const void* handle) {
    std::lock_guard<std::mutex> lock(xui_impl::state().mutex);
    return xui_impl::arg(handle);
}

namespace {
uint64_t frames(uint64_t xui_impl::Trace::*counter) {
    auto& t = xui_impl::tr();
    std::lock_guard<std::mutex> lock(t.mutex);
    return t.*counter;
}
bool waitForFrames(uint64_t xui_impl::Trace::*counter, uint64_t count, std::chrono::milliseconds timeout) {
    auto& t = xui_impl::tr();
    std::unique_lock<std::mutex> lock(t.mutex);
    return t.frameShown.wait_for(lock, timeout, [&] { return t.*counter >= count; });
}
} // namespace

uint64_t framesShown() {
    return frames(&xui_impl::Trace::frames);
}
bool waitForFrames(uint64_t count, std::chrono::milliseconds timeout) {
    return waitForFrames(&xui_impl::Trace::frames, count, timeout);
}
uint64_t mainFramesShown() {
    return frames(&xui_impl::Trace::mainFrames);
}
bool waitForMainFrames(uint64_t count, std::chrono::milliseconds timeout) {
    return waitForFrames(&xui_impl::Trace::mainFrames, count, timeout);
}

} // namespace xui_host
