#include "Support.hpp"

#include "ui/TextBox.hpp"

namespace {

using device::input::Key;
using test::digit;
using test::pound;
using Texts = std::vector<std::string>;

class TextBoxTest : public test::PlatformTest {
protected:
    // What the box paints now: one text per drawn line.
    static Texts shown(ui::Widget& box) { return test::texts(test::drawCalls(box)); }
    static void type(ui::ITextComponent& box, const std::string& digits) {
        for (char c : digits)
            box.injectKey(digit(c));
    }
};

using AmountBox = ui::TextBox<numeric_policy, format_policy>;

std::unique_ptr<AmountBox> poundBox() {
    auto box = std::make_unique<AmountBox>(0, 40, 320, 20);
    box->setSymbol(pound);
    box->setSeparator(".");
    box->setExponent(2);
    box->configureFormat();
    return box;
}

TEST_F(TextBoxTest, ShowsTheFormattedEntry_CentredInTheInputColour) {
    AmountBox plain(0, 40, 320, 20);
    EXPECT_EQ(shown(plain), Texts{"0"}); // formatted from the start, with the policy's defaults
    auto box = poundBox();
    type(*box, "125");
    const auto calls = test::drawCalls(*box, "CanvasDrawText");
    ASSERT_EQ(test::texts(calls), Texts{pound + "1.25"});
    const unsigned width = ui::fonts::GetTextWidth((pound + "1.25").c_str());
    EXPECT_EQ(calls[0].args[1], std::to_string(160 - width / 2));
    EXPECT_EQ(calls[0].args[2], "40");
    EXPECT_EQ(calls[0].args[6], "0xffffffff"); // branding colour 12
    EXPECT_EQ(box->getText(), "125");
    box->setX(10); // the setters move the label too
    box->setY(100);
    box->setWidth(100);
    box->setHeight(20);
    box->clearAll();
    box->configureFormat();
    const auto moved = test::drawCalls(*box, "CanvasDrawText");
    const unsigned zero = ui::fonts::GetTextWidth((pound + "0.00").c_str());
    EXPECT_EQ(moved.at(0).args[1] + " " + moved[0].args[2], std::to_string(10 + 50 - zero / 2) + " 100");
}

TEST_F(TextBoxTest, ClearFormatsButClearAllShowsNothing_SetTextShowsTheRawTextUntilConfigureFormat) {
    auto box = poundBox();
    type(*box, "125");
    box->clear();
    EXPECT_EQ(shown(*box), Texts{pound + "0.12"});
    box->clearAll();
    EXPECT_TRUE(shown(*box).empty());
    EXPECT_EQ(box->getText(), "");
    box->clear(); // nothing to remove, but the empty entry is formatted again
    EXPECT_EQ(shown(*box), Texts{pound + "0.00"});
    box->clearAll();
    type(*box, "7");
    EXPECT_EQ(shown(*box), Texts{pound + "0.07"});
    box->setText("4200");
    EXPECT_EQ(box->getText(), "4200");
    EXPECT_EQ(shown(*box), Texts{"4200"});
    box->configureFormat();
    EXPECT_EQ(shown(*box), Texts{pound + "42.00"});
    EXPECT_TRUE(box->validateText());
    box->setMin(5000);
    EXPECT_FALSE(box->validateText());
}

TEST_F(TextBoxTest, MaskingHidesEveryByte_AndLiftingItWaitsForTheNextChange) {
    auto box = poundBox();
    type(*box, "1234");
    box->maskDisplayString(true);
    EXPECT_EQ(shown(*box), Texts{"****"}); // no symbol, no separator
    box->maskDisplayString(false);
    EXPECT_EQ(shown(*box), Texts{"****"}); // one-way until the display is formatted again
    box->configureFormat();
    EXPECT_EQ(shown(*box), Texts{pound + "12.34"});
    box->setVisible(false);
    EXPECT_TRUE(shown(*box).empty());
}

// Keys and frames on two threads, as on the terminal: no frame may show a typed digit.
TEST_F(TextBoxTest, AMaskedBoxNeverPaintsWhatItHolds_WhileKeysArriveDuringFrames) {
    ui::TextBox<default_numeric_policy, empty_format_policy> box(0, 40, 320, 20);
    box.maskDisplayString(true);
    XuiWindow* canvas = XuiCreateCanvas(XuiRootCanvas(), 0, 0, 320, 216);
    std::atomic<bool> typing{true};
    std::atomic<int> frames{0};
    std::thread keypad([&] {
        for (int round = 0; round < 300 || frames < 300; ++round) {
            if (round == 0)
                frames = 0; // count only the frames drawn while keys arrive
            box.clearAll();
            for (char c : std::string("1234")) {
                box.injectKey(digit(c));
                std::this_thread::yield(); // keys come one at a time, frames in between
            }
        }
        typing = false;
    });
    while (typing) {
        box.draw(canvas);
        ++frames;
    }
    keypad.join();
    const Texts drawn = test::texts(xui_host::trace("CanvasDrawText"));
    ASSERT_FALSE(drawn.empty());
    for (const auto& text : drawn)
        ASSERT_EQ(text.find_first_not_of('*'), std::string::npos) << "a frame showed \"" << text << '"';
}

} // namespace
