#include "Support.hpp"

#include "ui/Label.hpp"
#include "ui/Menu.hpp"
#include "ui/Xui.hpp"

namespace {

using Lines = std::vector<std::string>;

unsigned width(const std::string& text) {
    return ui::fonts::GetTextWidth(text.c_str());
}

class LabelTest : public test::PlatformTest {
protected:
    XuiWindow* canvas() {
        if (!canvas_) {
            canvas_ = XuiCreateCanvas(XuiRootCanvas(), 0, 0, 320, 216);
            XuiCanvasSetBackground(canvas_, XUI_BG_NORMAL, nullptr, 0xFFFFFFFF);
        }
        return canvas_;
    }
    std::vector<xui_host::Call> drawn(ui::Label& label) {
        return test::drawCalls(label, "CanvasDrawText", canvas());
    }
    XuiWindow* canvas_ = nullptr;
};

// Twenty pixels a line whatever the font size; only whole lines are drawn, centred in the box
// unless told otherwise; right alignment keeps two pixels in and wraps around unsigned (geometry
// is 32-bit on the terminal and on this PC alike); a resize does not re-wrap.
TEST_F(LabelTest, Draw_OnlyLinesThatFit_PlacedByTheAlignments) {
    const auto placed = [&](ui::Label& label) {
        Lines out;
        for (const auto& c : drawn(label))
            out.push_back(c.args[1] + " " + c.args[2] + " " + c.args[3] + " " + c.args[6] + " " + c.args[7]);
        return out;
    };
    ui::Label label(10, 100, width("word") + 1, 0);
    label.setFontSize(30);
    label.setText("word word word");
    EXPECT_EQ(label.getHeight(), 60u);
    EXPECT_EQ(label.getText(), "wordwordword"); // the break spaces are gone
    label.setFontSize(20);
    label.setHeight(50);
    label.setWidth(1000);
    EXPECT_EQ(drawn(label)[0].str(), "CanvasDrawText(" + xui_host::nameOf(canvas()) + ", 10, 105, 20, " +
                                         xui_host::nameOf(ui::fonts::getFont()) +
                                         ", 0, 0xffeceff1, \"word\")");
    EXPECT_EQ(placed(label), (Lines{"10 105 20 0xffeceff1 \"word\"", "10 125 20 0xffeceff1 \"word\""}));
    label.verticalAlignment(false);
    label.setColor(0x12345678u);
    label.setFontSize(40);
    EXPECT_EQ(placed(label).at(0), "10 100 40 0xff123456 \"word\"");
    label.setFontSize(0); // no size: every line, one on another, whatever the height
    label.setHeight(0);
    EXPECT_EQ(placed(label).size(), 3u);

    const unsigned w = width("Total");
    ui::Label total(7, 0, 101, 20);
    total.setText("Total");
    total.setAlignment(ui::utils::Right);
    EXPECT_EQ(drawn(total)[0].args[1], std::to_string(7 + 101 - 2 - w));
    total.setAlignment(ui::utils::Centre);
    EXPECT_EQ(drawn(total)[0].args[1], std::to_string(7 + 101 / 2 - w / 2));
    total.setAlignment(ui::utils::Origin(3)); // meaningless horizontally: left
    EXPECT_EQ(drawn(total)[0].args[1], "7");
    total.setWidth(10);
    total.setAlignment(ui::utils::Right);
    EXPECT_EQ(drawn(total)[0].args[1], std::to_string((uint64_t(1) << 32) + 7 + 10 - 2 - w));
    total.setVisible(false);
    EXPECT_TRUE(drawn(total).empty());
    ui::Label blank(0, 0, 100, 60);
    blank.setText("   ");
    EXPECT_EQ(blank.getHeight(), 0u);
    EXPECT_TRUE(drawn(blank).empty());
}

TEST_F(LabelTest, CopiesAndMoves_FollowTheirOwnVisibilityRules) {
    ui::Label source(1, 2, 200, 0);
    source.setText("Sale");
    source.setHeight(40);
    source.setAlignment(ui::utils::Centre);
    source.verticalAlignment(false); // at the top of its 40 pixels, not 10 lower
    source.setColor(0x00FF00FF);
    source.setVisible(false);
    // What a label looks like drawn: its x and y (the alignments), font size, colour and text.
    const auto looks = [&](ui::Label& l) {
        const auto calls = drawn(l);
        return calls.empty() ? std::string()
                             : calls[0].args[1] + " " + calls[0].args[2] + " " + calls[0].args[3] + " " +
                                   calls[0].args[6] + " " + calls[0].args[7];
    };
    const std::string sale = std::to_string(1 + 100 - width("Sale") / 2) + " 2 20 0xff00ff00 \"Sale\"";

    ui::Label copy(source);
    EXPECT_TRUE(copy.isVisible());
    EXPECT_EQ(looks(copy), sale); // alignment, colour and lines all copied
    EXPECT_EQ(test::box(copy), "1 2 200 40");

    ui::Label assigned;
    assigned = source;
    EXPECT_FALSE(assigned.isVisible());
    EXPECT_EQ(test::box(assigned), "1 2 200 40");
    EXPECT_EQ(assigned.getText(), "Sale");

    ui::Label moved(std::move(copy));
    EXPECT_EQ(moved.getText(), "Sale");
    EXPECT_EQ(copy.getText(), "");

    ui::Label target(9, 9, 9, 9);
    target.setText("X");
    target.setFontSize(30);
    target = std::move(moved);
    EXPECT_EQ(target.getText(), "Sale");
    EXPECT_EQ(looks(target), sale);
    EXPECT_EQ(moved.getText(), "X"); // swapped
}

// A decline turns a label red and a key moves a list's focus while the rendering thread draws
// them: ThreadSanitizer reports any of these fields read and written unguarded.
TEST_F(LabelTest, StyleAndFocusChangeWhileFramesAreDrawn) {
    ui::Label label(0, 0, 300, 40);
    label.setText("Declined");
    ui::ListItem item(0, 40, 300, 20, ui::menu::MenuItem(1, "Sale", false));
    XuiWindow* target = canvas();
    std::atomic<bool> stop{false};
    std::thread frames([&] {
        while (!stop) {
            label.draw(target);
            item.draw(target);
        }
    });
    for (unsigned i = 0; i < 300; ++i) {
        label.setColor(i % 2 ? 0xFF0000FFu : 0x00FF00FFu);
        label.setAlignment(i % 3 == 0 ? ui::utils::Centre : ui::utils::Right);
        label.verticalAlignment(i % 2 == 0);
        label.setFontSize(18 + i % 4);
        item.setFocus(i % 2 == 1);
        std::this_thread::yield();
    }
    stop = true;
    frames.join();
}

} // namespace
