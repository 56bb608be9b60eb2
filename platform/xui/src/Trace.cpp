// The call trace and the frame counter, for tests that assert what the library asked for.
#include "State.hpp"

#include <algorithm>
#include <condition_variable>
#include <cstdio>
#include <functional>
#include <memory>

namespace xui_impl {
namespace {

using Listeners = std::vector<std::pair<int, std::function<void(const xui_host::Call&)>>>;

struct Trace {
    std::mutex mutex;
    std::condition_variable frameShown;
    bool enabled = false;
    std::vector<xui_host::Call> calls;
    // Replaced whole, never changed in place: a call made while one goes keeps the list it saw.
    std::shared_ptr<const Listeners> listeners;
    int nextListener = 1;
    uint64_t frames = 0;
    uint64_t mainFrames = 0;
    xui_host::Frame lastMainFrame;
};

Trace& tr() {
    static Trace& t = *new Trace; // never destroyed
    return t;
}

} // namespace

bool tracing() {
    auto& t = tr();
    std::lock_guard<std::mutex> lock(t.mutex);
    return t.enabled || t.listeners;
}

void record(const char* function, std::vector<std::string> args, Canvas* into) {
    auto& t = tr();
    xui_host::Call call{function, std::move(args), std::chrono::steady_clock::now()};
    std::shared_ptr<const Listeners> listeners;
    {
        std::lock_guard<std::mutex> lock(t.mutex);
        listeners = t.listeners;
        if (t.enabled)
            t.calls.push_back(call);
    }
    if (listeners)
        for (const auto& listener : *listeners)
            listener.second(call);
    if (into)
        into->drawn.push_back(std::move(call));
}

void noteDrawing(Canvas& canvas) {
    auto& s = state();
    if (canvas.parent == s.root && canvas.begun == 0)
        canvas.begun = ++s.mainFramesBegun;
}

std::optional<xui_host::Frame> noteShown(Canvas& canvas, bool visible) {
    auto& s = state();
    if (!visible) {
        canvas.drawn.clear();
        canvas.begun = 0;
        return std::nullopt;
    }
    xui_host::Frame frame;
    frame.canvas = canvas.name;
    frame.width = canvas.width;
    frame.height = canvas.height;
    frame.calls = canvas.drawn;
    if (canvas.parent == s.statusbar) {
        s.header = std::move(frame);
        return std::nullopt;
    }
    if (canvas.parent != s.root)
        return std::nullopt;
    noteDrawing(canvas); // a frame that drew nothing began no later than now
    frame.begun = canvas.begun;
    frame.headerCanvas = s.header.canvas;
    frame.headerWidth = s.header.width;
    frame.headerHeight = s.header.height;
    frame.headerCalls = s.header.calls;
    return frame;
}

void noteFrameShown(std::optional<xui_host::Frame> mainFrame) {
    auto& t = tr();
    {
        std::lock_guard<std::mutex> lock(t.mutex);
        ++t.frames;
        if (mainFrame) {
            mainFrame->number = ++t.mainFrames;
            t.lastMainFrame = std::move(*mainFrame);
        }
    }
    t.frameShown.notify_all();
}

void traceReset() {
    auto& t = tr();
    std::lock_guard<std::mutex> lock(t.mutex);
    t.enabled = false; // listeners stay: they belong to whoever added them
    t.calls.clear();
    t.frames = 0;
    t.mainFrames = 0;
    t.lastMainFrame = {};
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

int addCallListener(std::function<void(const Call&)> listener) {
    auto& t = xui_impl::tr();
    std::lock_guard<std::mutex> lock(t.mutex);
    auto listeners = t.listeners ? std::make_shared<xui_impl::Listeners>(*t.listeners)
                                 : std::make_shared<xui_impl::Listeners>();
    const int id = t.nextListener++;
    listeners->emplace_back(id, std::move(listener));
    t.listeners = std::move(listeners);
    return id;
}

void removeCallListener(int id) {
    auto& t = xui_impl::tr();
    std::lock_guard<std::mutex> lock(t.mutex);
    if (!t.listeners)
        return;
    auto listeners = std::make_shared<xui_impl::Listeners>(*t.listeners);
    listeners->erase(std::remove_if(listeners->begin(), listeners->end(),
                                    [id](const auto& listener) { return listener.first == id; }),
                     listeners->end());
    t.listeners = listeners->empty() ? nullptr : std::move(listeners);
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

uint64_t mainFramesBegun() {
    auto& s = xui_impl::state();
    std::lock_guard<std::mutex> lock(s.mutex);
    return s.mainFramesBegun;
}

bool waitForMainFrameBegunAfter(uint64_t begun, std::chrono::milliseconds timeout) {
    auto& t = xui_impl::tr();
    std::unique_lock<std::mutex> lock(t.mutex);
    return t.frameShown.wait_for(lock, timeout, [&] { return t.lastMainFrame.begun > begun; });
}

Frame lastMainFrame() {
    auto& t = xui_impl::tr();
    std::lock_guard<std::mutex> lock(t.mutex);
    return t.lastMainFrame;
}

} // namespace xui_host
