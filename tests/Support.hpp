// Shared fixture and helpers: a fresh display and platform for every test, and small pixel
// queries for asserting what the renderer painted.
#pragma once

#include <osal/host.hpp>
#include <xui_host.hpp>

#include <gtest/gtest.h>

#include <mutex>
#include <string>
#include <vector>

namespace test {

// Opens a 320 x 240 display with a status bar, the trace on, and records the log.
class PlatformTest : public ::testing::Test {
protected:
    void SetUp() override {
        xui_host::reset();
        osal::host::reset();
        osal::host::setLogSink([this](LogLevel, const std::string& line) {
            std::lock_guard<std::mutex> lock(logMutex);
            logLines.push_back(line);
        });
        if (openDisplay)
            open();
        xui_host::setTracing(true);
    }

    void TearDown() override {
        xui_host::reset();
        osal::host::reset();
    }

    void open(int rotate = 0, int statusbar = 24) {
        std::string a = "ROTATE=" + std::to_string(rotate), b = "STATUSBAR=" + std::to_string(statusbar);
        char* argv[] = {a.data(), b.data()};
        XuiOpen(2, argv);
    }

    std::vector<std::string> log() {
        std::lock_guard<std::mutex> lock(logMutex);
        return logLines;
    }

    // The calls of one function, each as "Function(arg, ...)".
    static std::vector<std::string> calls(const std::string& function) {
        std::vector<std::string> out;
        for (const auto& c : xui_host::trace(function))
            out.push_back(c.str());
        return out;
    }

    bool openDisplay = true;
    std::mutex logMutex;
    std::vector<std::string> logLines;
};

struct Box {
    int x0 = 0, y0 = 0, x1 = -1, y1 = -1; // inclusive; x1 < x0 means empty
    bool empty() const { return x1 < x0; }
};

// Bounding box of every pixel that differs from the background colour.
inline Box inkBox(const xui_host::Pixels& p, uint32_t background) {
    Box b{int(p.width), int(p.height), -1, -1};
    for (unsigned y = 0; y < p.height; ++y)
        for (unsigned x = 0; x < p.width; ++x)
            if (p.at(x, y) != background) {
                b.x0 = std::min(b.x0, int(x));
                b.y0 = std::min(b.y0, int(y));
                b.x1 = std::max(b.x1, int(x));
                b.y1 = std::max(b.y1, int(y));
            }
    if (b.x1 < 0)
        return Box{};
    return b;
}

inline unsigned countColour(const xui_host::Pixels& p, uint32_t colour) {
    unsigned n = 0;
    for (uint32_t c : p.argb)
        n += c == colour;
    return n;
}

} // namespace test
