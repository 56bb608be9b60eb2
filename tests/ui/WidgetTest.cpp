#include "Support.hpp"

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

// Every setter of a widget made of parts reaches them: a centred "Sale" moved to (10, 30) and
// made 300 x 40 is drawn in the middle of its new box; a proxy hidden draws nothing.
class CompositeTest : public test::PlatformTest {};

TEST_F(CompositeTest, EverySetterReachesTheParts) {
    auto proxy = std::make_shared<ui::ProxyLabel>(0, 0, 100, 20);
    proxy->setText(std::string("Sale"));
    proxy->setAlignment(ui::utils::Centre);
    auto item = std::make_shared<ui::ListItem>(0, 0, 100, 20, ui::menu::MenuItem(1, "Sale", false));
    item->setAlignment(ui::utils::Centre);
    const std::string centred = std::to_string(10 + 150 - ui::fonts::GetTextWidth("Sale") / 2) + " 40";
    for (const std::shared_ptr<ui::Widget>& widget :
         {std::shared_ptr<ui::Widget>(proxy), std::shared_ptr<ui::Widget>(item)}) {
        widget->setX(10);
        widget->setY(30);
        widget->setWidth(300);
        widget->setHeight(40);
        const auto texts = ui::kit::drawnTexts(test::drawCalls(*widget, "CanvasDrawText"));
        ASSERT_EQ(texts.size(), 1u);
        EXPECT_EQ(std::to_string(texts[0].x) + " " + std::to_string(texts[0].y), centred);
    }
    proxy->setVisible(false);
    EXPECT_TRUE(test::drawCalls(*proxy).empty());
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
