#include "Support.hpp"

#include "ui/Image.hpp"
#include "ui/Xui.hpp"

#include <fstream>

namespace {

const char* const kAnimation = "res/images/demo/present_card.gif";

class GIFTest : public test::PlatformTest {
protected:
    // The animation's pixels as composited on the panel (root area starts below the bar).
    xui_host::Pixels region(unsigned x, unsigned y, unsigned w, unsigned h) {
        auto s = xui_host::screen();
        xui_host::Pixels out;
        out.width = w;
        out.height = h;
        for (unsigned r = 0; r < h; ++r)
            for (unsigned c = 0; c < w; ++c)
                out.argb.push_back(s.at(x + c, 24 + y + r));
        return out;
    }
};

TEST_F(GIFTest, PlaysInItsOwnWindow_ShownAndHiddenByVisible) {
    ui::GIF gif(kAnimation, 10, 20, 120, 90);
    auto created = xui_host::trace("CreateGif");
    ASSERT_EQ(created.size(), 1u);
    EXPECT_EQ(created[0].str(), "CreateGif(root, 10, 20, 120, 90, \"res/images/demo/present_card.gif\")");
    xui_host::pinAnimationTime(std::chrono::milliseconds(0));
    const uint32_t backdrop = 0xFF0F1C2Eu; // the animation's own background
    EXPECT_EQ(region(10, 20, 1, 1).argb[0], backdrop);

    gif.setVisible(false); // only the widget's flag
    gif.draw(nullptr);
    EXPECT_THAT(xui_host::trace("ShowWindow").back().str(), testing::EndsWith(", 1, 0)"));
    gif.visible(false);
    EXPECT_THAT(xui_host::trace("ShowWindow").back().str(), testing::EndsWith(", 0, 0)"));
    gif.draw(nullptr);
    EXPECT_FALSE(gif.isVisible());
    EXPECT_EQ(region(10, 20, 1, 1).argb[0], 0xFF000000u); // the root's background shows again
    gif.visible(true);
    EXPECT_TRUE(gif.Widget::isVisible()); // the widget's flag with it
    EXPECT_EQ(region(10, 20, 1, 1).argb[0], backdrop);

    gif.setX(200); // the window stays where it was made
    EXPECT_EQ(region(10, 20, 1, 1).argb[0], backdrop);
}

TEST_F(GIFTest, MissingOrBrokenFilesAreHarmless) {
    const std::string broken = test::tempPath("broken.gif");
    std::ofstream(broken) << "GIF89a but nothing more";
    for (const std::string& path : {std::string("no/such.gif"), broken, std::string()}) {
        ui::GIF gif(path, 0, 0, 10, 10);
        gif.draw(nullptr);
        gif.visible(false);
        gif.visible(true);
    }
    ui::GIF empty;
    empty.draw(nullptr);
    EXPECT_EQ(empty.getX() + empty.getY() + empty.getWidth() + empty.getHeight(), 0u);
    EXPECT_TRUE(xui_host::trace("ShowWindow").empty());
    EXPECT_TRUE(xui_host::trace("DestroyWindow").empty());
}

TEST_F(GIFTest, MovingTransfersTheRunningAnimation) {
    auto source = std::make_unique<ui::GIF>(kAnimation, 0, 0, 120, 90);
    source->setVisible(false);
    ui::GIF moved(std::move(*source));
    EXPECT_FALSE(moved.isVisible()) << "the source's widget flag is applied";
    EXPECT_EQ(moved.getX() + moved.getY() + moved.getWidth() + moved.getHeight(), 0u)
        << "its owner places it again";
    xui_host::clearTrace();
    source.reset(); // owns no window any more
    EXPECT_TRUE(xui_host::trace("DestroyWindow").empty());

    ui::GIF target(kAnimation, 0, 0, 60, 45);
    xui_host::clearTrace();
    moved.setVisible(false);
    target = std::move(moved);
    EXPECT_EQ(xui_host::trace("DestroyWindow").size(), 1u); // the target's previous window
    EXPECT_FALSE(target.Widget::isVisible());               // the source's flag
    xui_host::clearTrace();
    { ui::GIF last(std::move(target)); }
    auto t = xui_host::trace(); // shown as the source was, then hidden, then destroyed
    ASSERT_EQ(t.size(), 3u);
    EXPECT_EQ(t[0].function, "ShowWindow");
    EXPECT_EQ(t[1].function, "ShowWindow");
    EXPECT_EQ(t[1].args[1], "0");
    EXPECT_EQ(t[2].function, "DestroyWindow");
}

} // namespace
