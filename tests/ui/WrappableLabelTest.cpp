#include "Support.hpp"

#include "ui/Label.hpp"
#include "ui/Xui.hpp"

namespace {

using ui::utils::Origin;

class WrappableLabelTest : public test::PlatformTest {
protected:
    // Each line drawn as "y:text".
    std::vector<std::string> lines(ui::WrappableLabel& label) {
        std::vector<std::string> out;
        for (const auto& c : test::drawCalls(label, "CanvasDrawText"))
            out.push_back(c.args[2] + ":" + c.args[7].substr(1, c.args[7].size() - 2));
        return out;
    }
    static unsigned width(const std::string& text) { return ui::fonts::GetTextWidth(text.c_str()); }
    using Lines = std::vector<std::string>;
};

// Lines of 20 pixels while they fit the height, placed at the top, centre or bottom (anything
// else is the top), a word too wide cut at its longest fitting prefix. Ending on an exactly full
// line leaves the height used one line ahead: bottom placement sits a line higher.
TEST_F(WrappableLabelTest, PlacesTheLinesThatFit_TopCentreOrBottom) {
    const unsigned two = std::max(width("Please insert"), width("your card now")) + 1;
    const std::string five = "Please insert your card now thank you";
    const struct {
        unsigned y, width, height;
        Origin vertical;
        std::string text;
        Lines shown;
    } cases[] = {{10, two, 50, Origin::Top, five, {"10:Please insert", "30:your card now"}},
                 {0, 300, 19, Origin::Top, "Nothing fits", {}},
                 {100, 300, 100, Origin::Centre, "Approved", {"140:Approved"}},
                 {100, 300, 100, Origin::Bottom, "Approved", {"180:Approved"}},
                 {100, 300, 100, Origin(7), "Approved", {"100:Approved"}},
                 {0, width("Remove"), 100, Origin::Centre, "Remove card", {"30:Remove", "50:card"}},
                 {0, width("Approved"), 100, Origin::Bottom, "Approved", {"60:Approved"}},
                 {0,
                  width(std::string(70, 'a')),
                  100,
                  Origin::Bottom,
                  std::string(70, 'a'),
                  {"60:" + std::string(70, 'a')}}, // as long a line, found by galloping
                 {0, width("Remove"), 40, Origin::Top, "Remove card", {"0:Remove", "20:card"}},
                 {0, width("abcd"), 100, Origin::Top, "abcdabcd", {"0:abcd", "20:abcd"}}};
    for (const auto& c : cases) {
        ui::WrappableLabel label(0, c.y, c.width, c.height, Origin::Left, c.vertical);
        label.wrapText(c.text);
        EXPECT_EQ(lines(label), c.shown) << c.text << " in " << c.width << " x " << c.height;
    }
}

// A move shifts the lines by the distance from where the label was: twice, to the place asked.
TEST_F(WrappableLabelTest, Moves_KeepTheLayout) {
    ui::WrappableLabel label(10, 20, width("Remove"), 100, Origin::Left, Origin::Top);
    label.wrapText("Remove card");
    for (unsigned x : {15, 30})
        label.setX(x);
    for (unsigned y : {5, 8})
        label.setY(y);
    auto texts = test::drawCalls(label, "CanvasDrawText");
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0].args[1] + "," + texts[0].args[2] + " " + texts[1].args[2], "30,8 28");
}

TEST_F(WrappableLabelTest, SecondWrapAppends_AndResizeDropsTheText) {
    ui::WrappableLabel label(0, 0, 300, 100, Origin::Left, Origin::Top);
    label.wrapText("First");
    label.wrapText("Second");
    EXPECT_EQ(lines(label), (Lines{"0:First", "0:Second"})); // both from the box's top
    label.setVerticalAlignment(Origin::Bottom);
    EXPECT_EQ(lines(label), (Lines{"0:First", "0:Second"})); // not moved until the next wrap
    label.setWidth(width("Remove"));
    EXPECT_TRUE(lines(label).empty());
    label.wrapText("Remove card"); // at the new width
    EXPECT_EQ(lines(label), (Lines{"60:Remove", "80:card"}));
    label.setHeight(60); // drops the text too
    label.wrapText("Again");
    EXPECT_EQ(lines(label), (Lines{"40:Again"}));
}

// What a terminal pays for a long text: each line is measured near where it ends, from where
// the line before ended.
TEST_F(WrappableLabelTest, ALongTextCostsTheMeasurementsOfItsLines) {
    std::string text = std::string(100, 'a'); // a word over many lines, then many words
    for (int i = 0; i < 100; ++i)
        text += " word" + std::to_string(i);
    ui::WrappableLabel label(0, 0, 300, 2000, Origin::Left, Origin::Top);
    const auto before = xui_host::textMeasurements().calls;
    label.wrapText(text);
    EXPECT_EQ(xui_host::textMeasurements().calls - before, 248u);
}

TEST_F(WrappableLabelTest, LocalizedText_AndUnknownIdsThrow) {
    osal::host::setString(900, "Thank you");
    ui::WrappableLabel label(300, 40); // at the origin, centred both ways
    label.wrapText(900);
    const auto texts = test::drawCalls(label, "CanvasDrawText");
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(texts[0].args[1] + "," + texts[0].args[2],
              std::to_string(150 - width("Thank you") / 2) + ",10");
    EXPECT_THROW(label.wrapText(901), LocalizationException);
}

} // namespace
