// Shared fixture and helpers: a fresh display and platform for every test, and small pixel
// queries for asserting what the renderer painted.
#pragma once

#include <osal/host.hpp>
#include <xui_host.hpp>

#include "ui/GraphicsDevice.hpp"
#include "ui/IGraphics.hpp"
#include "ui/Image.hpp"
#include "ui/Widget.hpp"

#include <app/Screen.hpp>
#include <ui/kit/Pixels.hpp>
#include <ui/kit/Platform.hpp>
#include <ui/kit/Terminal.hpp>
#include <ui/kit/Widgets.hpp>

#include <gtest/gtest.h>

#include <dirent.h>
#include <functional>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace test {

// The pound sign in UTF-8, as an application passes it for a currency.
inline const std::string pound = "\xC2\xA3";

// The keypad key of a digit character.
inline device::input::Key digit(char c) {
    return c == '0' ? device::input::KEY_0 : device::input::Key(device::input::KEY_1 + (c - '1'));
}

// Opens a 320 x 240 display with a status bar, the trace on, and records the log: the kit's
// fresh platform for every test.
class PlatformTest : public ::testing::Test {
protected:
    void SetUp() override {
        // Sanitizers start a helper thread with the first thread: let it exist before any count.
        std::thread([] {}).join();
        platform = std::make_unique<ui::kit::Platform>();
        xui_host::setKeyWaitLimit(std::chrono::milliseconds(10));
        if (openDisplay)
            open();
        xui_host::setTracing(true);
    }
    void TearDown() override { platform.reset(); }

    static void open(int rotate = 0, int statusbar = 24) {
        ui::kit::Platform::openDisplay(rotate, statusbar);
    }
    std::vector<std::string> log() { return platform->log(); }

    // The calls of one function, each as "Function(arg, ...)".
    static std::vector<std::string> calls(const std::string& function) {
        std::vector<std::string> out;
        for (const auto& c : xui_host::trace(function))
            out.push_back(c.str());
        return out;
    }

    bool openDisplay = true;
    std::unique_ptr<ui::kit::Platform> platform;
};

// A graphics device of its own on a fresh platform (320 x 240 with a status bar of statusbar
// pixels), its rendering thread stopped before the platform goes.
class DeviceTest : public PlatformTest {
protected:
    explicit DeviceTest(int statusbar = 24) : statusbar_(statusbar) { openDisplay = false; }
    void SetUp() override {
        PlatformTest::SetUp();
        device = std::make_unique<ui::GraphicsDevice>(GraphicsDeviceParams{0, statusbar_});
    }
    void TearDown() override {
        device.reset();
        PlatformTest::TearDown();
    }
    std::unique_ptr<ui::GraphicsDevice> device;

private:
    int statusbar_;
};

// For tests of pictures: the process-wide image cache starts and ends empty.
class ImageCacheTest : public PlatformTest {
protected:
    void SetUp() override {
        PlatformTest::SetUp();
        ImageResourceCache::clearCache();
    }
    void TearDown() override {
        ImageResourceCache::clearCache();
        PlatformTest::TearDown();
    }
};

using View = ui::kit::RecordingScreen;
using ui::kit::drawCalls;

// The texts of the CanvasDrawText calls among calls, unquoted, in order.
inline std::vector<std::string> texts(const std::vector<xui_host::Call>& calls) {
    std::vector<std::string> out;
    for (const auto& drawn : ui::kit::drawnTexts(calls))
        out.push_back(drawn.text);
    return out;
}

// A file name of this process's own under the test temp folder: CTest runs tests side by side.
inline std::string tempPath(const std::string& name) {
    return ::testing::TempDir() + "/" + std::to_string(::getpid()) + "_" + name;
}

// Writes a plain w x h picture under the test temp folder and returns its path.
inline std::string writePng(const std::string& name, unsigned w, unsigned h, uint32_t argb = 0xFF336699) {
    xui_host::Pixels p;
    p.width = w;
    p.height = h;
    p.argb.assign(size_t(w) * h, argb);
    const std::string path = tempPath(name + ".png");
    xui_host::savePng(p, path);
    return path;
}

// Threads of this process, to prove that teardown leaves none behind. A thread just joined may
// linger here for a moment: compare through eventually().
inline int threadCount() {
    int n = 0;
    if (DIR* dir = opendir("/proc/self/task")) {
        while (dirent* entry = readdir(dir))
            n += entry->d_name[0] != '.';
        closedir(dir);
    }
    return n;
}

// Polls a condition that another thread will make true; fails after five seconds.
inline bool eventually(const std::function<bool()>& condition) {
    for (int i = 0; i < 5000; ++i) {
        if (condition())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return condition();
}

// The thread count to compare with: a thread that the set-up joined may still be listed, for
// long on a loaded machine under an emulator. Waits until the count holds still for 100 ms.
inline int settledThreadCount() {
    int count = threadCount(), same = 0;
    for (int i = 0; i < 500 && same < 10; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        const int now = threadCount();
        same = now == count ? same + 1 : 0;
        count = now;
    }
    return count;
}

using ui::kit::Box;
using ui::kit::countColour;
using ui::kit::inkBox;

} // namespace test
