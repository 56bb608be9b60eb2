// Menus and the scrolling list box that shows them.
#pragma once

#include "ui/Label.hpp"
#include "ui/Widget.hpp"

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

// Identifies a menu; a plain value.
using MenuId = int;

namespace ui {
namespace menu {

// One entry of a menu: what it shows and what choosing it does.
class MenuItem {
public:
    MenuItem();
    MenuItem(int id, const std::string& text, bool disabled);

    void setId(int id);
    int getId() const;
    void setText(const std::string& text);
    std::string getText() const;
    bool isDisabled() const;
    void setTarget(const std::function<void()>& target);

    // Runs the target when there is one and the item is enabled; otherwise does nothing.
    void invokeAction();

private:
    int id_ = 0;
    bool disabled_ = false;
    std::string text_;
    std::function<void()> target_;
};

class Menu {
public:
    Menu();
    explicit Menu(const MenuId& id);

    void addMenuItem(const MenuItem& item);
    std::vector<MenuItem> getMenuItems() const;
    MenuId getMenuId() const;

private:
    MenuId id_ = 0;
    std::vector<MenuItem> items_;
};

} // namespace menu

class ISelectable {
public:
    virtual ~ISelectable() {}
    virtual bool hasFocus() const = 0;
    virtual void setFocus(bool focus) = 0;
};

class IScrollable {
public:
    virtual ~IScrollable() {}
    virtual void up() = 0;
    virtual void down() = 0;
};

class IMenuContainer {
public:
    virtual ~IMenuContainer() {}
    virtual std::shared_ptr<Widget> getSelectedElement() const = 0;
    virtual std::vector<std::shared_ptr<Widget>> getSubElements() const = 0;
};

// One menu item as a line of text, with optional text before and after it. Disabled items
// are grey and never show the focus bar; the focused item shows the accent bar under text in
// the main background colour. Colours are looked up on every draw, so a new theme shows at
// once.
class ListItem : public Widget, public ISelectable {
public:
    ListItem(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
             const menu::MenuItem& item);

    void setX(unsigned int x) override;
    void setY(unsigned int y) override;
    void setWidth(unsigned int width) override;
    void setHeight(unsigned int height) override;
    void draw(_XuiWindow* window) override;
    bool hasFocus() const override;
    void setFocus(bool focus) override;

    void setAlignment(const utils::Origin& alignment);
    bool isDisabled() const;
    menu::MenuItem getMenuItem() const;
    // Shows the new item's text alone: the decorations are not applied again.
    void setMenuItem(const menu::MenuItem& item);
    void prefix(const std::string& text);
    void suffix(const std::string& text);
    // Forgets the decorations; the text shown keeps them until the next prefix or suffix.
    void clearDecorators();

private:
    void showDecorated();

    utl::relaxed<bool> focus_ = false; // moved by a key while the list is drawn
    std::string prefix_;
    std::string suffix_;
    menu::MenuItem item_;
    Label label_;
};

class ListBox;

namespace detail {

// The visible window of a list box and its selection, as iterators into its items. The
// window is always `count` consecutive items in circular order from top to bottom.
struct SelectionMenu {
    using iterator = std::vector<ListItem>::iterator;

    // Vertical gap between two rows, in pixels; the row pitch is the font size plus this.
    static constexpr unsigned int PADDING = 5;

    void highLightSelectedItem(iterator item, iterator end, bool focus);

    unsigned int count = 0;
    unsigned int width = 0;
    unsigned int height = 0;
    iterator top;
    iterator bottom;
    iterator selected;
};

// Rows of itemHeight that fit in height (itemHeight must not be 0).
unsigned int DetermineDisplayableItems(unsigned int height, unsigned int itemHeight);
// Moves the window one item forward (scrollUp) or back (scrollDown), wrapping at the ends.
void scrollUp(SelectionMenu* menu, std::vector<ListItem>& items);
void scrollDown(SelectionMenu* menu, std::vector<ListItem>& items);

} // namespace detail

// A scrolling list of items: shows as many rows as fit its height, moves one selection with
// up() and down(), skips disabled items and wraps around at both ends, the visible window
// following the selection a row at a time. Keys are the holding view's choice. Safe to scroll
// on the keypad thread while the rendering thread draws.
class ListBox : public Widget, public IScrollable, public IMenuContainer {
public:
    ListBox(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
            const std::vector<ListItem>& items);
    ListBox(const ListBox&) = delete;
    ListBox& operator=(const ListBox&) = delete;
    ~ListBox() override;

    // An empty list is ignored. Otherwise selects and focuses the first item, shows the rows
    // that fit, and gives items without a size the row height and the list's width.
    void setListItems(const std::vector<ListItem>& items);

    // The list's width only: rows keep the width they were given.
    void setWidth(unsigned int width) override;
    // Does not change how many rows are shown.
    void setHeight(unsigned int height) override;
    void draw(_XuiWindow* window) override;

    // Both do nothing on an empty list or one whose items are all disabled.
    void up() override;
    void down() override;

    void enableFocus(bool focus);
    // Independent copies; empty when there is nothing at that place.
    std::shared_ptr<Widget> getSelectedElement() const override;
    std::shared_ptr<Widget> getSelectedElementAt(unsigned int index) const;
    std::vector<std::shared_ptr<Widget>> getSubElements() const override;

private:
    bool scrollable() const;
    // One step of the selection, skipping disabled items; up() is backwards.
    void step(bool forward);

    mutable std::mutex mutex_;
    std::vector<ListItem> items_;
    std::shared_ptr<detail::SelectionMenu> selection_;
};

} // namespace ui
