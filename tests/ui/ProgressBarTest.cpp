#include "Support.hpp"

#include "ui/ProgressBar.hpp"
#include "ui/Xui.hpp"

#include <osal/resource.hpp>

namespace {

class ProgressBarTest : public test::PlatformTest {
protected:
    // Each rectangle drawn, "x,y wxh colour"; all of them filled.
    std::vector<std::string> rects(ui::ProgressBar& bar) {
        std::vector<std::string> out;
        for (const auto& c : test::drawCalls(bar, "CanvasDrawRect")) {
            EXPECT_EQ(c.args[6] + c.args[7], "01") << c.str(); // no rounding, filled
            out.push_back(c.args[1] + "," + c.args[2] + " " + c.args[3] + "x" + c.args[4] + " " + c.args[5]);
        }
        return out;
    }
    using Rects = std::vector<std::string>;
    static constexpr unsigned kFrame = 0x11111100, kBack = 0x22222200, kFill = 0x33333300, kFull = 0x44444400;
};

TEST_F(ProgressBarTest, Geometry_InsetsAreAHundredthOfTheWidth_AndAnEmptyBarIsFull) {
    ui::ProgressBar bar(10, 20, 200, 20, kFrame, kBack, kFill, kFull);
    EXPECT_EQ(rects(bar),
              (Rects{"10,20 200x20 0xff111111", "12,22 196x16 0xff222222", "16,26 0x8 0xff333333"}));
    bar.setProgress(50);
    EXPECT_EQ(rects(bar)[2], "16,26 94x8 0xff333333");
    bar.setProgress(100);
    EXPECT_EQ(rects(bar)[2], "16,26 188x8 0xff444444");
    bar.setProgress(150);
    EXPECT_EQ(rects(bar)[2], "16,26 188x8 0xff444444");
    bar.setProgress(33);
    EXPECT_EQ(rects(bar)[2], "16,26 62x8 0xff333333"); // 33 * 188 / 100, truncated
    // Under 100 pixels there are no margins; and 0 of 0 is full.
    ui::ProgressBar narrow(0, 0, 99, 10, kFrame, kBack, kFill, kFull);
    narrow.setProgress(50);
    EXPECT_EQ(rects(narrow), (Rects{"0,0 99x10 0xff111111", "0,0 99x10 0xff222222", "0,0 49x10 0xff333333"}));
    ui::ProgressBar cornered(99, 10); // at the corner, in the branding's colours
    EXPECT_EQ(rects(cornered)[0].substr(0, 9), "0,0 99x10");
    ui::ProgressBar zero(0, 0, 0, 10, kFrame, kBack, kFill, kFull);
    EXPECT_EQ(rects(zero)[2], "0,0 0x10 0xff444444");
    zero.setVisible(false);
    EXPECT_TRUE(rects(zero).empty());
}

TEST_F(ProgressBarTest, Resizing_KeepsTheFilledFraction) {
    ui::ProgressBar bar(0, 0, 200, 20, kFrame, kBack, kFill, kFull);
    bar.setProgress(50);
    bar.setWidth(400);
    EXPECT_EQ(rects(bar), (Rects{"0,0 400x20 0xff111111", "4,2 392x16 0xff222222", "12,6 188x8 0xff333333"}));
    bar.setHeight(40); // the vertical insets follow the new width now
    EXPECT_EQ(rects(bar),
              (Rects{"0,0 400x40 0xff111111", "4,4 392x32 0xff222222", "12,12 188x16 0xff333333"}));
    bar.setX(5);
    bar.setY(6);
    EXPECT_EQ(rects(bar)[2], "17,18 188x16 0xff333333");
    ui::ProgressBar thin(0, 0, 1, 10, kFrame, kBack, kFill, kFull); // a one-pixel run is a fraction too
    thin.setProgress(100);
    thin.setWidth(50);
    EXPECT_EQ(rects(thin)[2], "0,0 50x10 0xff444444");
}

TEST_F(ProgressBarTest, AtZeroFiftyAndHundred_MatchesTheReviewedPicture) {
    XuiWindow* canvas = XuiCreateCanvas(XuiRootCanvas(), 0, 0, 240, 100);
    XuiCanvasSetBackground(canvas, XUI_BG_NORMAL, nullptr,
                           ui::fonts::intToXuiColor(
                               resource::ResourceMapping::getResourceColor(resource::BRAND_MAIN_BACKGROUND)));
    for (unsigned i = 0; i < 3; ++i) {
        ui::ProgressBar bar(200, 20);
        bar.setX(20);
        bar.setY(10 + i * 30);
        bar.setProgress(i * 50);
        bar.draw(canvas);
    }
    EXPECT_TRUE(ui::kit::matchesGolden(xui_host::canvas(canvas), "progress_0_50_100.png"));
}

} // namespace
