#include "Support.hpp"

#include "ui/Image.hpp"
#include "ui/Label.hpp"
#include "ui/Menu.hpp"
#include "ui/Widget.hpp"

#include <sstream>

namespace {

// Records every request to draw; a hidden probe is still asked, and returns at once.
class Probe : public ui::Widget {
public:
    using Widget::Widget;
    void draw(_XuiWindow*) override { ++asked; }
    int asked = 0;
};

// A container asks every child to draw, hidden ones too (visibility is the child's own
// business), and skips null ones; the free update draws only a real widget.
TEST(IContainer, DrawWidgets_SkipsNullChildren_AndAsksHiddenOnesToo) {
    app::Screen screen(0, 0, 320, 216);
    auto first = std::make_shared<Probe>(1, 1), hidden = std::make_shared<Probe>(1, 1);
    hidden->setVisible(false);
    for (const auto& child : {first, std::shared_ptr<Probe>(), hidden})
        screen.add(child);
    screen.draw(nullptr);
    EXPECT_EQ(std::make_pair(first->asked, hidden->asked), std::make_pair(1, 1));
    app::Screen(0, 0, 320, 216).draw(nullptr); // nothing to do, nothing to break
    EXPECT_FALSE(ui::detail::update(nullptr, nullptr));
    EXPECT_TRUE(ui::detail::update(nullptr, first.get()));
    EXPECT_EQ(first->asked, 2);
    EXPECT_EQ(ui::detail::CalculateMainViewYPosition(10, 30), 30u);
}

using test::box;
class CompositeTest : public test::PlatformTest {};

// Every setter of a widget made of parts reaches its own box and the parts: a centred "Sale"
// moved to (10, 30) and made 300 x 40 is drawn in the middle of its new box, in the size it was
// given; a picture is drawn over the whole box; a proxy hidden draws nothing.
TEST_F(CompositeTest, EverySetterReachesTheParts) {
    auto proxy = std::make_shared<ui::ProxyLabel>(0, 0, 100, 20);
    proxy->setText(std::string("Sale"));
    proxy->setAlignment(ui::utils::Centre);
    proxy->setFontSize(16);
    auto item = std::make_shared<ui::ListItem>(0, 0, 100, 20, ui::menu::MenuItem(1, "Sale", false));
    item->setAlignment(ui::utils::Centre);
    auto picture = std::make_shared<ui::ProxyImage>(test::writePng("composite", 8, 8), 0, 0, 8, 8);
    for (const std::shared_ptr<ui::Widget>& widget :
         {std::shared_ptr<ui::Widget>(proxy), std::shared_ptr<ui::Widget>(item),
          std::shared_ptr<ui::Widget>(picture)}) {
        widget->setX(10);
        widget->setY(30);
        widget->setWidth(300);
        widget->setHeight(40);
        EXPECT_EQ(box(*widget), "10 30 300 40");
        const auto calls = test::drawCalls(*widget, widget == picture ? "CanvasDrawImg" : "CanvasDrawText");
        ASSERT_EQ(calls.size(), 1u);
        const unsigned size = widget == proxy ? 16 : 20; // a picture: x, y and width
        const std::string where =
            widget == picture ? "10 30 300"
                              : std::to_string(10 + 150 - ui::fonts::GetTextWidth("Sale", size) / 2) + " " +
                                    std::to_string(30 + (40 - size) / 2) + " " + std::to_string(size);
        EXPECT_EQ(calls[0].args[1] + " " + calls[0].args[2] + " " + calls[0].args[3], where);
        if (widget == proxy) { // at the top of its box once not centred vertically
            proxy->verticalAlignment(false);
            EXPECT_EQ(test::drawCalls(*proxy, "CanvasDrawText")[0].args[2], "30");
        }
        widget->setVisible(false); // the composite and its part
        EXPECT_FALSE(widget->isVisible());
        EXPECT_TRUE(test::drawCalls(*widget).empty());
    }
}

// Widgets made without a box sit at the corner, of no size.
TEST_F(CompositeTest, WidgetsMadeWithoutABoxAreEmptyAtTheCorner) {
    const ui::ProxyImage image;
    const ui::ProxyLabel label;
    const ui::Decorator decorator(nullptr);
    const ui::Label plain;
    for (const ui::Widget* widget :
         std::initializer_list<const ui::Widget*>{&image, &label, &decorator, &plain})
        EXPECT_EQ(box(*widget), "0 0 0 0");
}

TEST(Widget, Dump_WritesSevenLabelledLines) {
    Probe p(1, 2, 3, 4);
    std::ostringstream out;
    out << p;
    EXPECT_EQ(out.str(), "\n"
                         "Widtet X:         1\n"
                         "Widtet Y:         2\n"
                         "Widtet W:         3\n"
                         "Widtet H:         4\n"
                         "Widtet VISIBLE:   1\n"
                         "\n");
    std::ostringstream words;
    words << std::boolalpha << p;
    EXPECT_NE(words.str().find("VISIBLE:   true"), std::string::npos);
}

} // namespace
