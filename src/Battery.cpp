#include "ui/Header.hpp"

#include <osal/device.hpp>

#include <algorithm>
#include <atomic>

namespace ui {
namespace {

const char* const kBatteryIcons[] = {
    "images/header/battery/ZEVA_12717_Battery_Icon_1.png",
    "images/header/battery/ZEVA_12717_Battery_Icon_2.png",
    "images/header/battery/ZEVA_12717_Battery_Icon_3.png",
    "images/header/battery/ZEVA_12717_Battery_Icon_4.png",
    "images/header/battery/ZEVA_12717_Battery_Icon_5.png",
    "images/header/battery/ZEVA_12717_Battery_charging_Icon_0.png",
    "images/header/battery/ZEVA_12717_Battery_charging_Icon_05.png",
};

// Shared by every instance: the index may be set from any thread, the pictures only grow.
std::atomic<int> status_{0};
std::vector<ProxyImage> levels;

} // namespace

Battery::Battery(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                 const std::string& directory)
    : Widget(x, y, width, height) {
    // Never cleared: a second battery appends its own seven, and the first seven are drawn.
    for (const char* path : kBatteryIcons)
        levels.emplace_back(directory + path, x, y, width, height);
    status_.store(0, std::memory_order_release);
    setVisible(device::DeviceInformation::batterySupported());
}

Battery::~Battery() = default;

void Battery::setValue(int level) {
    if (level > 6)
        return;
    status_.store(std::max(level, 0), std::memory_order_release);
}

void Battery::draw(_XuiWindow* canvas) {
    if (isVisible())
        levels[static_cast<std::size_t>(status_.load(std::memory_order_acquire))].draw(canvas);
}

} // namespace ui
