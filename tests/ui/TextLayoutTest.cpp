#include "Support.hpp"

#include "ui/Label.hpp"
#include "ui/Xui.hpp"

namespace {

using Lines = std::vector<std::string>;

TEST(TextLayoutTest, SplitOnNewLinesTrimsAndKeepsEmptyLines_SplitLineCutsAtTheLastSpaceOrHard) {
    EXPECT_EQ(ui::splitOnNewLines("a\n\nb\n"), (Lines{"a", "", "b"}));
    EXPECT_EQ(ui::splitOnNewLines(" one \t\ntwo"), (Lines{"one", "two"}));
    EXPECT_TRUE(ui::splitOnNewLines("").empty());
    EXPECT_EQ(ui::splitOnNewLines("\n"), (Lines{""}));
    EXPECT_EQ(ui::splitLine("abcdefghij", 4), (Lines{"abcd", "efgh", "ij"}));
    EXPECT_EQ(ui::splitLine("Insert or tap card", 10), (Lines{"Insert or", "tap card"}));
    // A line of exactly the budget is still broken at its space; wordWrap keeps it whole.
    EXPECT_EQ(ui::splitLine("Tap card", 8), (Lines{"Tap", "card"}));
    EXPECT_EQ(ui::wordWrap("Tap card", 8), (Lines{"Tap card"}));
    EXPECT_EQ(ui::wordWrap("Please insert your card\nthen wait", 10),
              (Lines{"Please", "insert", "your card", "then wait"}));
    EXPECT_EQ(ui::splitLine("abc", 0), (Lines{""}));             // no budget: nothing to cut by, and it ends
    EXPECT_EQ(ui::splitLine(" abc", 2), (Lines{"", "ab", "c"})); // an empty first piece, and on
}

class TextLayoutOnScreenTest : public test::DeviceTest {
protected:
    TextLayoutOnScreenTest() : DeviceTest(0) {} // 320 x 240
    // Each label's box and text.
    static Lines placed(const std::vector<std::shared_ptr<ui::Widget>>& labels) {
        Lines out;
        for (const auto& w : labels)
            out.push_back(test::box(*w) + " " + static_cast<ui::Label&>(*w).getText());
        return out;
    }
};

TEST_F(TextLayoutOnScreenTest, CentredBlocksSitInTheMiddleOfTheScreen) {
    ASSERT_EQ(GetMainCanvasHeight(), 240);
    const auto labels = ui::centerOfScreenFormatting(Lines{"one", "two", "three"});
    EXPECT_EQ(placed(labels), (Lines{"0 90 320 20 one", "0 110 320 20 two", "0 130 320 20 three"}));
    EXPECT_EQ(ui::GetYFromLastTextElement(labels), 130u);
    // Centred text is drawn around the middle of the canvas.
    const auto calls = test::drawCalls(*labels[0], "CanvasDrawText");
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].args[1], std::to_string(160 - ui::fonts::GetTextWidth("one") / 2));

    // Wrapped at 24 characters first.
    const auto message = ui::centerOfScreenFormatting("Please present, insert or swipe your card");
    EXPECT_EQ(placed(message),
              (Lines{"0 100 320 20 Please present, insert", "0 120 320 20 or swipe your card"}));
    // 24 characters stay whole, 25 do not.
    EXPECT_EQ(placed(ui::centerOfScreenFormatting("Insert or swipe the card")),
              (Lines{"0 110 320 20 Insert or swipe the card"}));
    EXPECT_EQ(placed(ui::centerOfScreenFormatting("Insert or swipe the cards")),
              (Lines{"0 100 320 20 Insert or swipe the", "0 120 320 20 cards"}));
    EXPECT_EQ(placed(ui::centerFormatting("Tap", 7)), (Lines{"0 7 320 20 Tap"}));
}

TEST_F(TextLayoutOnScreenTest, AutomaticFormattingStacksLeftAlignedLines_EvenWhenOneWraps) {
    const std::string wide(60, 'W');
    const auto labels = ui::automaticFormatting(Lines{"a", wide, "b"}, 10);
    ASSERT_EQ(labels.size(), 3u);
    // The wide one wraps to four lines, and overlaps the next.
    EXPECT_EQ(placed(labels), (Lines{"0 10 320 20 a", "0 30 320 80 " + wide, "0 50 320 20 b"}));
    EXPECT_EQ(test::drawCalls(*labels[0], "CanvasDrawText")[0].args[1], "0");
}

TEST_F(TextLayoutOnScreenTest, PixelWordWrap_KeepsAFittingTextWhole_AndOverlapsPastTheFirstBreak) {
    std::vector<std::string> out;
    ui::wordWrap(out, "Short");
    EXPECT_EQ(out, (Lines{"Short"}));
    // Exactly as wide as the canvas (64 "i" of 5 pixels): not narrower, so walked, and never past
    // it, so nothing is added at all. Kept as specified.
    ui::wordWrap(out, std::string(64, 'i'));
    EXPECT_EQ(out, (Lines{"Short"}));

    // Find a text just one character too wide for the canvas; its first letter stands out, so a
    // line cut from the wrong place shows.
    std::string text = "W";
    unsigned sum = ui::fonts::GetTextWidth("W");
    while (sum <= 320) {
        text += 'm';
        sum += ui::fonts::GetTextWidth("m");
    }
    text += "mm"; // two more past the break
    const std::size_t cut = text.size() - 3;
    out.clear();
    ui::wordWrap(out, text);
    // The first line and its rest, then each longer prefix with its own rest.
    EXPECT_EQ(out, (Lines{text.substr(0, cut), "mmm", text.substr(0, cut + 1), "mm", text.substr(0, cut + 2),
                          "m"}));

    out.clear();
    ui::wordWrap(out, "");
    EXPECT_EQ(out, (Lines{""})); // the canvas is wider than nothing
    EXPECT_EQ(ui::automaticFormatting(text, 0).size(), 6u);

    // On a panel narrower than one letter every cut is empty, and wrapping still ends.
    device.reset();
    xui_host::setPanelSize(12, 240);
    device = std::make_unique<ui::GraphicsDevice>(GraphicsDeviceParams{0, 0});
    ASSERT_EQ(GetMainCanvasWidth(), 12);
    out.clear();
    ui::wordWrap(out, "WW");
    EXPECT_EQ(out, (Lines{"", "W", ""}));
}

} // namespace
