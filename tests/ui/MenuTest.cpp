#include "Support.hpp"

#include "ui/Menu.hpp"
#include "ui/Xui.hpp"

#include <osal/resource.hpp>

namespace {

using MenuTest = test::PlatformTest;
using ui::menu::MenuItem;

TEST_F(MenuTest, ActionsRunOnlyForEnabledItemsWithATarget_AndAMenuKeepsItsItemsInOrder) {
    int runs = 0;
    MenuItem sale(1, "Sale", false);
    sale.invokeAction(); // no target: nothing
    sale.setTarget([&] { ++runs; });
    sale.invokeAction();
    MenuItem refund(2, "Refund", true);
    refund.setTarget([&] { ++runs; });
    refund.invokeAction();
    EXPECT_EQ(runs, 1);
    ui::menu::Menu menu(7);
    menu.addMenuItem(MenuItem(1, "Sale", false));
    menu.addMenuItem(MenuItem(2, "Refund", false));
    ASSERT_EQ(menu.getMenuItems().size(), 2u);
    EXPECT_EQ(menu.getMenuItems()[1].getText(), "Refund");
}

class ListItemTest : public test::PlatformTest {
protected:
    std::vector<std::string> drawn(ui::ListItem& item) {
        std::vector<std::string> out;
        for (const auto& c : test::drawCalls(item))
            out.push_back(c.function == "CanvasDrawText" ? "text " + c.args[6] + " " + c.args[7]
                                                         : "rect " + c.args[5] + " r" + c.args[6]);
        return out;
    }
};

TEST_F(ListItemTest, Decorations_AreAppliedAtEachCall_AndClearedLazily) {
    ui::ListItem item(0, 0, 300, 20, MenuItem(1, "Sale", false));
    item.prefix("> ");
    EXPECT_EQ(drawn(item).back(), "text 0xffeceff1 \"> Sale\"");
    item.suffix(" <");
    EXPECT_EQ(drawn(item).back(), "text 0xffeceff1 \"> Sale <\"");
    item.clearDecorators();
    EXPECT_EQ(drawn(item).back(), "text 0xffeceff1 \"> Sale <\"");
    item.suffix("!");
    EXPECT_EQ(drawn(item).back(), "text 0xffeceff1 \"Sale!\"");
    item.clearDecorators(); // both ends, whichever is set next
    item.prefix("* ");
    EXPECT_EQ(drawn(item).back(), "text 0xffeceff1 \"* Sale\"");
    item.setMenuItem(MenuItem(2, "Refund", false));
    EXPECT_EQ(drawn(item).back(), "text 0xffeceff1 \"Refund\"");
    EXPECT_EQ(item.getMenuItem().getId(), 2);
}

TEST_F(ListItemTest, Looks_NormalFocusedAndDisabled) {
    ui::ListItem item(4, 5, 300, 20, MenuItem(1, "Sale", false));
    item.setFocus(true);
    // Focused: the accent bar over the whole item, under text in the main background colour.
    EXPECT_EQ(drawn(item), (std::vector<std::string>{"rect 0xff4fc3f7 r1", "text 0xff0f1c2e \"Sale\""}));
    EXPECT_EQ(calls("CanvasDrawRect")[0], "CanvasDrawRect(root, 4, 5, 300, 20, 0xff4fc3f7, 1, 1)");
    item.setFocus(false); // the text's own colour again
    EXPECT_EQ(drawn(item), (std::vector<std::string>{"text 0xffeceff1 \"Sale\""}));
    ui::ListItem disabled(0, 0, 300, 20, MenuItem(2, "Void", true));
    disabled.setFocus(true); // never shows the bar
    EXPECT_EQ(drawn(disabled), (std::vector<std::string>{"text 0xff607d8b \"Void\""}));
    osal::host::setColor(resource::BRAND_DISABLED_TEXT, 0x11223300u); // looked up at each draw
    EXPECT_EQ(drawn(disabled), (std::vector<std::string>{"text 0xff112233 \"Void\""}));
}

std::vector<ui::ListItem> makeItems(int count, std::initializer_list<int> disabled = {}) {
    std::vector<ui::ListItem> items;
    for (int i = 0; i < count; ++i) {
        const bool off = std::find(disabled.begin(), disabled.end(), i) != disabled.end();
        // Built with their width: a label wraps once, when its text is set.
        items.emplace_back(0, 0, 200, 0, MenuItem(i, "Item " + std::to_string(i), off));
    }
    return items;
}

class ListBoxTest : public test::PlatformTest {
protected:
    // The rows drawn, top to bottom, as item ids; the focused one marked with '*'.
    std::vector<std::string> rows(ui::ListBox& list) {
        std::vector<std::string> out;
        bool bar = false;
        for (const auto& c : test::drawCalls(list)) {
            if (c.function == "CanvasDrawRect") {
                bar = true;
                continue;
            }
            if (c.function != "CanvasDrawText")
                continue;
            const std::string text = c.args[7];
            out.push_back(text.substr(6, text.size() - 7) + (bar ? "*" : ""));
            bar = false;
        }
        return out;
    }
    static int selectedId(const ui::ListBox& list) {
        return std::static_pointer_cast<ui::ListItem>(list.getSelectedElement())->getMenuItem().getId();
    }
    using Rows = std::vector<std::string>;
};

TEST_F(ListBoxTest, TenItemsInAHundredPixels_ScrollDownAndWrapUp) {
    ui::ListBox list(0, 0, 200, 100, makeItems(10)); // pitch 25: four rows
    EXPECT_EQ(rows(list), (Rows{"0*", "1", "2", "3"}));
    EXPECT_EQ(list.getSelectedElementAt(9)->getHeight(), 20u); // items made 0 high: a line, at once
    ui::ListBox narrow(0, 0, 150, 100, {ui::ListItem(0, 0, 0, 40, MenuItem(1, "x", false))});
    EXPECT_EQ(narrow.getSelectedElementAt(0)->getWidth(), 150u); // made 0 wide: the list's, at once
    ui::ListBox wide(0, 0, 150, 100, {ui::ListItem(0, 0, 90, 40, MenuItem(1, "x", false))});
    const auto rect = test::drawCalls(wide, "CanvasDrawRect")[0].args;
    EXPECT_EQ(rect[3] + " " + rect[4], "150 20"); // any row is drawn as wide as the list, a line high
    for (int i = 0; i < 4; ++i)
        list.down();
    EXPECT_EQ(selectedId(list), 4);
    EXPECT_EQ(rows(list), (Rows{"1", "2", "3", "4*"}));

    ui::ListBox wrapped(0, 0, 200, 100, makeItems(10));
    wrapped.up();
    EXPECT_EQ(selectedId(wrapped), 9);
    EXPECT_EQ(rows(wrapped), (Rows{"9*", "0", "1", "2"}));
    wrapped.down();
    EXPECT_EQ(rows(wrapped), (Rows{"9", "0*", "1", "2"}));
}

// Disabled items are skipped both ways, round the ends; with every item disabled nothing moves.
// A short list draws only its items, an empty one or one without room for a row nothing.
TEST_F(ListBoxTest, DisabledItemsAreSkippedBothWays_AndShortListsDrawWhatTheyHave) {
    ui::ListBox list(0, 0, 200, 100, makeItems(6, {1, 2, 5}));
    list.down();
    EXPECT_EQ(rows(list), (Rows{"0", "1", "2", "3*"}));
    std::string visited;
    for (auto step :
         {&ui::ListBox::down, &ui::ListBox::down, &ui::ListBox::up, &ui::ListBox::up, &ui::ListBox::up}) {
        (list.*step)();
        visited += std::to_string(selectedId(list));
    }
    EXPECT_EQ(visited, "40430");
    ui::ListBox disabled(0, 0, 200, 100, makeItems(3, {0, 1, 2}));
    disabled.down();
    disabled.up();
    EXPECT_EQ(selectedId(disabled), 0);

    ui::ListBox two(0, 0, 200, 100, makeItems(2));
    EXPECT_EQ(rows(two), (Rows{"0*", "1"}));
    ui::ListBox empty(0, 0, 200, 100, {});
    EXPECT_TRUE(rows(empty).empty());
    empty.up();
    empty.down();
    EXPECT_EQ(empty.getSelectedElement(), nullptr);
    ui::ListBox tooLow(0, 0, 200, 24, makeItems(3)); // not one row fits
    EXPECT_TRUE(rows(tooLow).empty());
}

TEST_F(ListBoxTest, SetListItems_IgnoresAnEmptyList_AndRecomputesTheRows_TheSizeSettersDoNot) {
    ui::ListBox list(0, 0, 200, 100, makeItems(10));
    const Rows before = rows(list);
    list.setHeight(300);
    list.setWidth(50);
    EXPECT_EQ(list.getWidth(), 50u); // the list's own setter must still size the widget
    EXPECT_EQ(rows(list), before);   // the window of rows stays as it was computed
    list.down();
    list.setListItems({});
    EXPECT_EQ(selectedId(list), 1);
    list.setListItems(makeItems(10)); // recomputed for the new height, from the first item
    EXPECT_GT(rows(list).size(), before.size());
    EXPECT_EQ(rows(list).front(), "0*");
}

TEST_F(ListBoxTest, Getters_ReturnIndependentCopies) {
    ui::ListBox list(0, 0, 200, 100, makeItems(3));
    auto copy = std::static_pointer_cast<ui::ListItem>(list.getSelectedElementAt(2));
    ASSERT_NE(copy, nullptr);
    copy->setMenuItem(MenuItem(42, "Changed", false));
    copy->setFocus(true);
    EXPECT_EQ(rows(list), (Rows{"0*", "1", "2"}));
    EXPECT_EQ(list.getSelectedElementAt(3), nullptr);
    auto all = list.getSubElements();
    ASSERT_EQ(all.size(), 3u);
    EXPECT_TRUE(std::static_pointer_cast<ui::ListItem>(all[0])->hasFocus());
    list.enableFocus(false);
    EXPECT_EQ(rows(list), (Rows{"0", "1", "2"}));
}

TEST_F(ListBoxTest, MidScrollWithADisabledItem_MatchesTheReviewedPicture) {
    std::vector<ui::ListItem> items;
    const char* names[] = {"Sale",    "Refund",     "Void",    "Pre-authorisation",
                           "Reports", "End of day", "Settings"};
    for (int i = 0; i < 7; ++i)
        items.emplace_back(0, 0, 220, 0, MenuItem(i, names[i], i == 2));
    ui::ListBox list(10, 8, 220, 125, items); // five rows
    for (int i = 0; i < 4; ++i)               // past the disabled "Void" to "End of day", one row scrolled
        list.down();
    XuiWindow* canvas = XuiCreateCanvas(XuiRootCanvas(), 0, 0, 240, 140);
    XuiCanvasSetBackground(canvas, XUI_BG_NORMAL, nullptr,
                           ui::fonts::intToXuiColor(
                               resource::ResourceMapping::getResourceColor(resource::BRAND_MAIN_BACKGROUND)));
    list.draw(canvas);
    EXPECT_TRUE(ui::kit::matchesGolden(xui_host::canvas(canvas), "listbox_mid_scroll.png"));
}

} // namespace
