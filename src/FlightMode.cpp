#include "ui/Header.hpp"

namespace ui {
namespace {

const char* const kFlightMode = "images/header/ZEVA_flight_mode.png";

} // namespace

FlightMode::FlightMode(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                       const std::string& directory)
    : Widget(x, y, width, height),
      icon_(std::make_unique<ProxyImage>(directory + kFlightMode, x, y, width, height)) {
    setVisible(false);
}

FlightMode::~FlightMode() = default;

void FlightMode::draw(_XuiWindow* canvas) {
    if (icon_ && isVisible())
        icon_->draw(canvas);
}

} // namespace ui
