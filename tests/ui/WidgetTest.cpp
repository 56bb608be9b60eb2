#include "Support.hpp"

#include "ui/Widget.hpp"

#include <sstream>

namespace {

// Records draws; honours visibility as every widget must.
class Probe : public ui::Widget {
public:
    using Widget::Widget;
    void draw(_XuiWindow*) override {
        if (isVisible())
            ++draws;
    }
    int draws = 0;
};

class Screen : public ui::IContainer {
public:
    Screen() : IContainer(0, 0, 320, 216) {}
    void add(std::shared_ptr<ui::Widget> w) { widgets.push_back(std::move(w)); }
    void handleKeyPress(const device::input::Key&) override {}
    void onShow() override {}
    void onHide() override {}
    void onRefresh() override {}
    bool isFinished() const override { return false; }
    void draw(_XuiWindow* canvas) override { drawWidgets(canvas); }
};

TEST(IContainer, DrawWidgets_SkipsNullChildren_AndLeavesVisibilityToThem) {
    Screen screen;
    auto first = std::make_shared<Probe>(1, 1);
    auto hidden = std::make_shared<Probe>(1, 1);
    auto last = std::make_shared<Probe>(1, 1);
    hidden->setVisible(false);
    screen.add(first);
    screen.add(nullptr);
    screen.add(hidden);
    screen.add(last);
    screen.draw(nullptr);
    EXPECT_EQ(first->draws, 1);
    EXPECT_EQ(hidden->draws, 0);
    EXPECT_EQ(last->draws, 1);
    Screen empty;
    empty.draw(nullptr); // nothing to do, nothing to break
}

TEST(WidgetDetail, Update_DrawsOnlyARealWidget) {
    Probe p(1, 1);
    EXPECT_FALSE(ui::detail::update(nullptr, nullptr));
    EXPECT_TRUE(ui::detail::update(nullptr, &p));
    EXPECT_EQ(p.draws, 1);
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
