#include "ui/Header.hpp"

#include <osal/device.hpp>

namespace ui {
namespace {

const char* const kEthernetOn = "images/header/ethernet/ZEVA_12717_Ethernet_connection_globe_icon.png";
const char* const kEthernetOff = "images/header/ethernet/ZEVA_12717_Ethernet_connection_icon.png";

// Shared by every instance: the header holds one.
ProxyImage icon_on;
ProxyImage icon_off;
utl::relaxed<bool> status = false; // set by the application, read while drawing

} // namespace

Ethernet::Ethernet(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                   const std::string& directory)
    : Widget(x, y, width, height) {
    icon_on = ProxyImage(directory + kEthernetOn, x, y, width, height);
    icon_off = ProxyImage(directory + kEthernetOff, x, y, width, height);
    if (!device::DeviceInformation::ethSupported())
        setVisible(false);
}

Ethernet::~Ethernet() = default;

void Ethernet::setValue(bool connected) {
    status = connected;
}

void drawIcon(_XuiWindow* canvas) {
    if (status)
        icon_on.draw(canvas);
    else
        icon_off.draw(canvas);
}

void Ethernet::draw(_XuiWindow* canvas) {
    if (isVisible())
        drawIcon(canvas);
}

} // namespace ui
