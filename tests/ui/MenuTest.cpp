#include "Support.hpp"

#include "ui/Menu.hpp"
#include "ui/Xui.hpp"

namespace {

using MenuTest = test::PlatformTest;
using ui::menu::MenuItem;

TEST_F(MenuTest, Actions_RunOnlyForEnabledItemsWithATarget) {
    int runs = 0;
    MenuItem sale(1, "Sale", false);
    sale.invokeAction(); // no target: nothing
    sale.setTarget([&] { ++runs; });
    sale.invokeAction();
    MenuItem refund(2, "Refund", true);
    refund.setTarget([&] { ++runs; });
    refund.invokeAction();
    EXPECT_EQ(runs, 1);
    MenuItem blank;
    EXPECT_EQ(blank.getId(), 0);
    EXPECT_FALSE(blank.isDisabled());
    EXPECT_EQ(blank.getText(), "");
}

TEST_F(MenuTest, Menu_KeepsItsItemsInOrder) {
    ui::menu::Menu menu(7);
    menu.addMenuItem(MenuItem(1, "Sale", false));
    menu.addMenuItem(MenuItem(2, "Refund", false));
    ASSERT_EQ(menu.getMenuItems().size(), 2u);
    EXPECT_EQ(menu.getMenuItems()[1].getText(), "Refund");
    EXPECT_EQ(menu.getMenuId(), 7);
    EXPECT_TRUE(ui::menu::Menu().getMenuItems().empty());
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
    ui::ListItem disabled(0, 0, 300, 20, MenuItem(2, "Void", true));
    disabled.setFocus(true); // never shows the bar
    EXPECT_EQ(drawn(disabled), (std::vector<std::string>{"text 0xff607d8b \"Void\""}));
    osal::host::setColor(resource::BRAND_DISABLED_TEXT, 0x11223300u); // looked up at each draw
    EXPECT_EQ(drawn(disabled), (std::vector<std::string>{"text 0xff112233 \"Void\""}));
}

} // namespace
