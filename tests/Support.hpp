// Shared fixture and helpers: a fresh display and platform for every test, and small pixel
// queries for asserting what the renderer painted.
#pragma once

#include <osal/host.hpp>
#include <xui_host.hpp>

#include "ui/GraphicsDevice.hpp"
#include "ui/IGraphics.hpp"
#include "ui/Image.hpp"
#include "ui/Widget.hpp"

#include <ui/app/Screen.hpp>
#include <ui/kit/Golden.hpp>
#include <ui/kit/Pixels.hpp>
#include <ui/kit/Platform.hpp>
#include <ui/kit/Terminal.hpp>
#include <ui/kit/Threads.hpp>
#include <ui/kit/Widgets.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

using PlatformTest = ui::kit::DisplayTest;

// A graphics device of its own on a fresh platform (320 x 240 with a status bar of statusbar
// pixels), its rendering thread stopped before the platform goes.
class DeviceTest : public PlatformTest {
protected:
    explicit DeviceTest(int statusbar = 24) : statusbar_(statusbar) { openDisplay = false; }
    void SetUp() override {
        test::PlatformTest::SetUp();
        device = std::make_unique<ui::GraphicsDevice>(GraphicsDeviceParams{0, statusbar_});
    }
    void TearDown() override {
        device.reset();
        test::PlatformTest::TearDown();
    }
    std::unique_ptr<ui::GraphicsDevice> device;

private:
    int statusbar_;
};

using View = ui::kit::RecordingScreen;
using ui::kit::drawCalls;

// The texts of the CanvasDrawText calls among calls, unquoted, in order.
inline std::vector<std::string> texts(const std::vector<xui_host::Call>& calls) {
    std::vector<std::string> out;
    for (const auto& drawn : ui::session::drawnTexts(calls))
        out.push_back(drawn.text);
    return out;
}

// A widget's box, "x y width height".
inline std::string box(const ui::Widget& w) {
    return std::to_string(w.getX()) + " " + std::to_string(w.getY()) + " " + std::to_string(w.getWidth()) +
           " " + std::to_string(w.getHeight());
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

using ui::kit::eventually;
using ui::kit::settledThreadCount;
using ui::kit::threadCount;

using ui::kit::Box;
using ui::kit::countColour;
using ui::kit::inkBox;

} // namespace test

// Exceptions are checked by their type and message.
using ::testing::StrEq;
using ::testing::ThrowsMessage;
