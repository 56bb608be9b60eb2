#include "ui/Header.hpp"

namespace ui {
namespace {

const char* const kUpdateIcon = "images/header/ZEVA_12717_application_update_icon.png";

// Shared by every instance: the header holds one.
std::shared_ptr<ProxyImage> icon;

} // namespace

ApplicationUpdate::ApplicationUpdate(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                                     const std::string& directory)
    : Widget(x, y, width, height) {
    icon = std::make_shared<ProxyImage>(directory + kUpdateIcon, x, y, width, height);
}

ApplicationUpdate::~ApplicationUpdate() = default;

void ApplicationUpdate::setValue(bool available) {
    setVisible(available);
}

void ApplicationUpdate::draw(_XuiWindow* canvas) {
    if (isVisible())
        icon->draw(canvas);
}

} // namespace ui
