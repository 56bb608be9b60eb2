#include "ui/Menu.hpp"
#include "ui/Xui.hpp"

#include <osal/resource.hpp>

namespace ui {

ListItem::ListItem(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                   const menu::MenuItem& item)
    : Widget(x, y, width, height), item_(item), label_(x, y, width, height) {
    label_.setText(item_.getText());
    label_.setAlignment(utils::Left);
    label_.setFontSize(fonts::getFontSize());
}

void ListItem::setX(unsigned int x) {
    Widget::setX(x);
    label_.setX(x);
}

void ListItem::setY(unsigned int y) {
    Widget::setY(y);
    label_.setY(y);
}

void ListItem::setWidth(unsigned int width) {
    Widget::setWidth(width);
    label_.setWidth(width);
}

void ListItem::setHeight(unsigned int height) {
    Widget::setHeight(height);
    label_.setHeight(height);
}

bool ListItem::hasFocus() const {
    return focus_;
}
void ListItem::setFocus(bool focus) {
    focus_ = focus;
}
void ListItem::setAlignment(const utils::Origin& alignment) {
    label_.setAlignment(alignment);
}
bool ListItem::isDisabled() const {
    return item_.isDisabled();
}
menu::MenuItem ListItem::getMenuItem() const {
    return item_;
}

void ListItem::setMenuItem(const menu::MenuItem& item) {
    item_ = item;
    label_.setText(item_.getText());
}

void ListItem::showDecorated() {
    label_.setText(prefix_ + item_.getText() + suffix_);
}

void ListItem::prefix(const std::string& text) {
    prefix_ = text;
    showDecorated();
}

void ListItem::suffix(const std::string& text) {
    suffix_ = text;
    showDecorated();
}

void ListItem::clearDecorators() {
    prefix_.clear();
    suffix_.clear();
}

void ListItem::draw(_XuiWindow* window) {
    if (!isVisible())
        return;
    using resource::ResourceMapping;
    if (isDisabled()) {
        label_.setColor(ResourceMapping::getResourceColor(resource::BRAND_DISABLED_TEXT));
    } else if (focus_) {
        label_.setColor(ResourceMapping::getResourceColor(resource::BRAND_MAIN_BACKGROUND));
        Xui::CanvasDrawRect(window, getX(), getY(), getWidth(), getHeight(),
                            fonts::intToXuiColor(ResourceMapping::getResourceColor(resource::BRAND_ACCENT)),
                            1, 1);
    } else {
        label_.setColor(ResourceMapping::getResourceColor(resource::BRAND_TEXT));
    }
    label_.draw(window);
}

} // namespace ui
