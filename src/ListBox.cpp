#include "ui/Menu.hpp"
#include "ui/Xui.hpp"

#include <algorithm>

namespace ui {
namespace detail {

using iterator = SelectionMenu::iterator;

// Circular steps through the items.
static iterator next(iterator it, std::vector<ListItem>& items) {
    return ++it == items.end() ? items.begin() : it;
}
static iterator previous(iterator it, std::vector<ListItem>& items) {
    return it == items.begin() ? items.end() - 1 : it - 1;
}

void SelectionMenu::highLightSelectedItem(iterator item, iterator end, bool focus) {
    if (item != end)
        item->setFocus(focus);
}

unsigned int DetermineDisplayableItems(unsigned int height, unsigned int itemHeight) {
    return height / itemHeight;
}

void scrollUp(SelectionMenu* menu, std::vector<ListItem>& items) {
    menu->top = next(menu->top, items);
    menu->bottom = next(menu->bottom, items);
}

void scrollDown(SelectionMenu* menu, std::vector<ListItem>& items) {
    menu->top = previous(menu->top, items);
    menu->bottom = previous(menu->bottom, items);
}

} // namespace detail

ListBox::ListBox(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                 const std::vector<ListItem>& items)
    : Widget(x, y, width, height), items_(items), selection_(std::make_shared<detail::SelectionMenu>()) {
    setListItems(items);
}

ListBox::~ListBox() = default;

void ListBox::setListItems(const std::vector<ListItem>& items) {
    if (items.empty())
        return;
    std::lock_guard<std::mutex> lock(mutex_);
    items_ = items;
    detail::SelectionMenu& s = *selection_;
    s.width = getWidth();
    s.height = getHeight();
    const unsigned fontSize = fonts::getFontSize();
    const unsigned rows =
        detail::DetermineDisplayableItems(s.height, fontSize + detail::SelectionMenu::PADDING);
    s.count = std::min(static_cast<unsigned>(items_.size()), rows);
    s.top = s.selected = items_.begin();
    // With no row at all the window is empty; keep bottom valid rather than before the first.
    s.bottom = s.count == 0 ? items_.begin() : items_.begin() + (s.count - 1);
    s.selected->setFocus(true);
    for (auto& item : items_) {
        if (item.getHeight() == 0)
            item.setHeight(fontSize);
        if (item.getWidth() == 0)
            item.setWidth(getWidth());
    }
}

void ListBox::setWidth(unsigned int width) {
    Widget::setWidth(width);
}

void ListBox::setHeight(unsigned int height) {
    std::lock_guard<std::mutex> lock(mutex_);
    selection_->height = height;
    Widget::setHeight(height);
}

bool ListBox::scrollable() const {
    // Skipping disabled items would never end on a list with nothing enabled.
    return std::any_of(items_.begin(), items_.end(), [](const ListItem& item) { return !item.isDisabled(); });
}

void ListBox::up() {
    std::lock_guard<std::mutex> lock(mutex_);
    if (scrollable())
        step(false);
}

void ListBox::down() {
    std::lock_guard<std::mutex> lock(mutex_);
    if (scrollable())
        step(true);
}

void ListBox::step(bool forward) {
    detail::SelectionMenu& s = *selection_;
    auto advance = [&](detail::SelectionMenu::iterator it) {
        return forward ? detail::next(it, items_) : detail::previous(it, items_);
    };
    // Leaving the window by its leading edge drags the window along by one row.
    auto& leading = forward ? s.bottom : s.top;
    auto& trailing = forward ? s.top : s.bottom;
    s.selected->setFocus(false);
    const auto old = s.selected;
    s.selected = advance(s.selected);
    if (old == leading) {
        leading = s.selected;
        trailing = advance(trailing);
    }
    if (s.selected->isDisabled()) {
        step(forward);
        return;
    }
    s.selected->setFocus(true);
}

void ListBox::enableFocus(bool focus) {
    std::lock_guard<std::mutex> lock(mutex_);
    if (!items_.empty())
        selection_->highLightSelectedItem(selection_->selected, items_.end(), focus);
}

std::shared_ptr<Widget> ListBox::getSelectedElement() const {
    std::lock_guard<std::mutex> lock(mutex_);
    if (items_.empty())
        return nullptr;
    return std::make_shared<ListItem>(*selection_->selected);
}

std::shared_ptr<Widget> ListBox::getSelectedElementAt(unsigned int index) const {
    std::lock_guard<std::mutex> lock(mutex_);
    if (index >= items_.size())
        return nullptr;
    return std::make_shared<ListItem>(items_[index]);
}

std::vector<std::shared_ptr<Widget>> ListBox::getSubElements() const {
    std::lock_guard<std::mutex> lock(mutex_);
    std::vector<std::shared_ptr<Widget>> copies;
    copies.reserve(items_.size());
    for (const auto& item : items_)
        copies.push_back(std::make_shared<ListItem>(item));
    return copies;
}

void ListBox::draw(_XuiWindow* window) {
    if (!isVisible())
        return;
    std::lock_guard<std::mutex> lock(mutex_);
    const detail::SelectionMenu& s = *selection_;
    if (s.count == 0)
        return;
    const unsigned fontSize = fonts::getFontSize();
    unsigned rowY = getY();
    auto it = s.top;
    for (unsigned row = 0; row < s.count; ++row, ++it, rowY += fontSize + detail::SelectionMenu::PADDING) {
        if (it == items_.end())
            it = items_.begin(); // a window that wraps shows the last items, then the first
        it->setX(getX());
        it->setY(rowY);
        it->setHeight(fontSize);
        it->setWidth(s.width);
        it->draw(window);
    }
}

} // namespace ui
