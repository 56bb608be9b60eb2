#include "Golden.hpp"
#include "Support.hpp"

#include "ui/Menu.hpp"
#include "ui/Xui.hpp"

#include <osal/resource.hpp>

namespace {

using ui::menu::MenuItem;

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

TEST_F(ListBoxTest, RowsArePlacedAtThePitchWithTheListsWidth) {
    ui::ListBox list(10, 30, 200, 100, makeItems(3));
    list.draw(ui::Xui::RootCanvas());
    auto texts = xui_host::trace("CanvasDrawText");
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_EQ(texts[0].args[1], "10");
    EXPECT_EQ(texts[0].args[2], "30");
    EXPECT_EQ(texts[1].args[2], "55");
    EXPECT_EQ(texts[2].args[2], "80");
    EXPECT_EQ(calls("CanvasDrawRect")[0], "CanvasDrawRect(root, 10, 30, 200, 20, 0xff4fc3f7, 1, 1)");
}

TEST_F(ListBoxTest, DisabledItemsAreSkippedBothWays) {
    ui::ListBox list(0, 0, 200, 100, makeItems(6, {1, 2, 5}));
    list.down();
    EXPECT_EQ(selectedId(list), 3);
    EXPECT_EQ(rows(list), (Rows{"0", "1", "2", "3*"}));
    list.down(); // 4
    list.down(); // 5 is disabled: on to 0
    EXPECT_EQ(selectedId(list), 0);
    list.up(); // 5 disabled: 4
    EXPECT_EQ(selectedId(list), 4);
    list.up(); // 3
    list.up(); // 2 and 1 disabled: 0
    EXPECT_EQ(selectedId(list), 0);
}

TEST_F(ListBoxTest, AllDisabled_DoesNotScroll) {
    ui::ListBox list(0, 0, 200, 100, makeItems(3, {0, 1, 2}));
    list.down();
    list.up();
    EXPECT_EQ(selectedId(list), 0);
}

TEST_F(ListBoxTest, AShortListDrawsOnlyItsItems_AndEmptyListsNothing) {
    ui::ListBox list(0, 0, 200, 100, makeItems(2));
    EXPECT_EQ(rows(list), (Rows{"0*", "1"}));
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
    EXPECT_EQ(list.getWidth(), 50u);
    EXPECT_EQ(rows(list), before); // the window of rows stays as it was computed
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

TEST_F(ListBoxTest, ScrollHelpersMoveTheWindowCircularly) {
    auto items = makeItems(4);
    ui::detail::SelectionMenu window;
    window.top = items.begin() + 2;
    window.bottom = items.begin() + 3;
    ui::detail::scrollUp(&window, items);
    EXPECT_EQ(window.top, items.begin() + 3);
    EXPECT_EQ(window.bottom, items.begin());
    ui::detail::scrollDown(&window, items);
    ui::detail::scrollDown(&window, items);
    EXPECT_EQ(window.top, items.begin() + 1);
    EXPECT_EQ(window.bottom, items.begin() + 2);
    EXPECT_EQ(ui::detail::DetermineDisplayableItems(100, 25), 4u);
    EXPECT_EQ(ui::detail::DetermineDisplayableItems(99, 25), 3u);
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
    EXPECT_TRUE(test::matchesGolden(xui_host::canvas(canvas), "listbox_mid_scroll"));
}

} // namespace
