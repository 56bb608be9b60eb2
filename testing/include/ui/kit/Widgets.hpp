// For an application's own widgets, tested on their own: a fixture with a bare display, what one
// draw of a widget asks of Xui, and a screen that records what the library does to it (its
// draws, the keys it is given and on which thread), to hold the widget under test on a Terminal.
//
//   class AmountFieldTest : public ui::kit::DisplayTest {};
//   ui::kit::RecordingScreen screen;        // or a Terminal's: terminal.show(screen)
//   screen.add(amountField);
//   const auto calls = ui::kit::drawCalls(*amountField, "CanvasDrawText");
#pragma once

#include <ui/ui.hpp>

#include "ui/kit/Platform.hpp"

#include <ui/app/Screen.hpp>

#include <xui_host.hpp>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace ui::kit {

// A fresh platform for every test, the call trace on, and the display open (320 x 240, a
// 24-pixel status bar) unless the test's constructor sets openDisplay to false: for widgets
// drawn on their own, or a graphics device or user interface the test brings up itself.
class DisplayTest : public ::testing::Test {
protected:
    void SetUp() override {
        // Sanitizers start a helper thread with the first thread: let it exist before any count.
        std::thread([] {}).join();
        platform = std::make_unique<Platform>();
        xui_host::setKeyWaitLimit(std::chrono::milliseconds(10)); // a keypad stops within 10 ms
        if (openDisplay)
            Platform::openDisplay();
        xui_host::setTracing(true);
    }
    void TearDown() override { platform.reset(); }

    // What the library logged since the test began.
    std::vector<std::string> log() { return platform->log(); }
    // The calls of one function traced so far, each as "Function(arg, ...)".
    static std::vector<std::string> calls(const std::string& function) {
        std::vector<std::string> out;
        for (const auto& c : xui_host::trace(function))
            out.push_back(c.str());
        return out;
    }

    bool openDisplay = true;
    std::unique_ptr<Platform> platform;
};

// Draws the widget (onto the root canvas unless told otherwise) with the trace on, and returns
// the calls it made of one function ("CanvasDrawText", "CanvasDrawImg"...), or all of them.
inline std::vector<xui_host::Call> drawCalls(ui::Widget& widget, const std::string& function = "",
                                             _XuiWindow* canvas = nullptr) {
    xui_host::setTracing(true);
    xui_host::clearTrace();
    widget.draw(canvas ? canvas : XuiRootCanvas());
    return function.empty() ? xui_host::trace() : xui_host::trace(function);
}

// A full-screen screen that counts its draws and records the keys it handles. The hooks run on
// the thread that draws (the rendering thread, under a Terminal) or reads keys (the keypad's).
class RecordingScreen : public app::Screen {
public:
    RecordingScreen() : Screen(0, 0, 320, 216) {}

    void draw(_XuiWindow* canvas) override {
        if (onDraw)
            onDraw(canvas);
        drawWidgets(canvas);
        ++draws;
    }
    // The keypad reports "no key" when its wait runs out; a screen ignores it.
    void handleKeyPress(const device::input::Key& key) override {
        if (key == device::input::KEY_NONE)
            return;
        {
            std::lock_guard<std::mutex> lock(mutex_);
            keys_.push_back(key);
            keyThread = std::this_thread::get_id();
        }
        if (onKey)
            onKey(key);
        keyArrived_.notify_all();
    }

    // Waits up to five seconds for this many keys in all; false if they did not come.
    bool waitForKeys(size_t count) {
        std::unique_lock<std::mutex> lock(mutex_);
        return keyArrived_.wait_for(lock, std::chrono::seconds(5), [&] { return keys_.size() >= count; });
    }
    std::vector<device::input::Key> receivedKeys() {
        std::lock_guard<std::mutex> lock(mutex_);
        return keys_;
    }

    std::atomic<int> draws{0};
    std::function<void(_XuiWindow*)> onDraw;
    std::function<void(device::input::Key)> onKey;
    std::thread::id keyThread; // of the last key, read once waitForKeys returned

private:
    std::mutex mutex_;
    std::condition_variable keyArrived_;
    std::vector<device::input::Key> keys_;
};

} // namespace ui::kit
