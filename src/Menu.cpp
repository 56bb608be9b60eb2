#include "ui/Menu.hpp"

namespace ui::menu {

MenuItem::MenuItem() = default;
MenuItem::MenuItem(int id, const std::string& text, bool disabled)
    : id_(id), disabled_(disabled), text_(text) {}

void MenuItem::setId(int id) {
    id_ = id;
}
int MenuItem::getId() const {
    return id_;
}
void MenuItem::setText(const std::string& text) {
    text_ = text;
}
std::string MenuItem::getText() const {
    return text_;
}
bool MenuItem::isDisabled() const {
    return disabled_;
}
void MenuItem::setTarget(const std::function<void()>& target) {
    target_ = target;
}

void MenuItem::invokeAction() {
    if (target_ && !disabled_)
        target_();
}

Menu::Menu() = default;
Menu::Menu(const MenuId& id) : id_(id) {}

void Menu::addMenuItem(const MenuItem& item) {
    items_.push_back(item);
}
std::vector<MenuItem> Menu::getMenuItems() const {
    return items_;
}
MenuId Menu::getMenuId() const {
    return id_;
}

} // namespace ui::menu
