#include "Support.hpp"

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

TEST(IContainer, DrawWidgets_SkipsNullChildren_AndAsksHiddenOnesToo) {
    app::Screen screen(0, 0, 320, 216);
    auto first = std::make_shared<Probe>(1, 1);
    auto hidden = std::make_shared<Probe>(1, 1);
    auto last = std::make_shared<Probe>(1, 1);
    hidden->setVisible(false);
    screen.add(first);
    screen.add(nullptr);
    screen.add(hidden);
    screen.add(last);
    screen.draw(nullptr);
    EXPECT_EQ(first->asked, 1);
    EXPECT_EQ(hidden->asked, 1); // visibility is the child's own business
    EXPECT_EQ(last->asked, 1);
    app::Screen empty(0, 0, 320, 216);
    empty.draw(nullptr); // nothing to do, nothing to break
}

TEST(WidgetDetail, Update_DrawsOnlyARealWidget) {
    Probe p(1, 1);
    EXPECT_FALSE(ui::detail::update(nullptr, nullptr));
    EXPECT_TRUE(ui::detail::update(nullptr, &p));
    EXPECT_EQ(p.asked, 1);
    EXPECT_EQ(ui::detail::CalculateMainViewYPosition(10, 30), 30u);
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
