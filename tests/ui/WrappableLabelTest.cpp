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

TEST_F(WrappableLabelTest, HeightBudget_FiftyPixelsHoldTwoLines) {
    const unsigned w = std::max(width("Please insert"), width("your card now")) + 1;
    ui::WrappableLabel label(0, 10, w, 50, Origin::Left, Origin::Top);
    label.wrapText("Please insert your card now thank you");
    EXPECT_EQ(lines(label), (Lines{"10:Please insert", "30:your card now"}));
    ui::WrappableLabel low(0, 0, 300, 19, Origin::Left, Origin::Top);
    low.wrapText("Nothing fits");
    EXPECT_TRUE(lines(low).empty());
}

TEST_F(WrappableLabelTest, VerticalPlacement_TopCentreBottom) {
    ui::WrappableLabel centre(0, 100, 300, 100, Origin::Left, Origin::Centre);
    centre.wrapText("Approved");
    EXPECT_EQ(lines(centre), (Lines{"140:Approved"})); // (100 - 20) / 2
    ui::WrappableLabel bottom(0, 100, 300, 100, Origin::Left, Origin::Bottom);
    bottom.wrapText("Approved");
    EXPECT_EQ(lines(bottom), (Lines{"180:Approved"}));
    ui::WrappableLabel top(0, 100, 300, 100, Origin::Left, Origin(7)); // anything else: top
    top.wrapText("Approved");
    EXPECT_EQ(lines(top), (Lines{"100:Approved"}));
    ui::WrappableLabel twoLines(0, 0, width("Remove"), 100, Origin::Left, Origin::Centre);
    twoLines.wrapText("Remove card");
    EXPECT_EQ(lines(twoLines), (Lines{"30:Remove", "50:card"}));
}

TEST_F(WrappableLabelTest, ALineExactlyFullCountsOneLineAhead) {
    // Ending on an exactly full line leaves used one line ahead: bottom placement sits higher.
    ui::WrappableLabel label(0, 0, width("Approved"), 100, Origin::Left, Origin::Bottom);
    label.wrapText("Approved");
    EXPECT_EQ(lines(label), (Lines{"60:Approved"}));
}

TEST_F(WrappableLabelTest, Moves_KeepTheLayout) {
    ui::WrappableLabel label(10, 20, width("Remove"), 100, Origin::Left, Origin::Top);
    label.wrapText("Remove card");
    label.setX(15);
    label.setY(5);
    auto texts = test::drawCalls(label, "CanvasDrawText");
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0].args[1], "15");
    EXPECT_EQ(texts[0].args[2], "5");
    EXPECT_EQ(texts[1].args[2], "25");
}

TEST_F(WrappableLabelTest, SecondWrapAppends_AndResizeDropsTheText) {
    ui::WrappableLabel label(0, 0, 300, 100, Origin::Left, Origin::Top);
    label.wrapText("First");
    label.wrapText("Second");
    EXPECT_EQ(lines(label), (Lines{"0:First", "0:Second"})); // both from the box's top
    label.setVerticalAlignment(Origin::Bottom);
    EXPECT_EQ(lines(label), (Lines{"0:First", "0:Second"})); // not moved until the next wrap
    label.setWidth(200);
    EXPECT_TRUE(lines(label).empty());
    label.wrapText("Again");
    EXPECT_EQ(lines(label), (Lines{"80:Again"}));
    label.setHeight(60); // drops the text too
    label.wrapText("Again");
    EXPECT_EQ(lines(label), (Lines{"40:Again"}));
}

TEST_F(WrappableLabelTest, LocalizedText_AndUnknownIdsThrow) {
    osal::host::setString(900, "Thank you");
    ui::WrappableLabel label(300, 40);
    label.wrapText(900);
    EXPECT_EQ(lines(label).size(), 1u);
    EXPECT_THROW(label.wrapText(901), LocalizationException);
}

} // namespace
