#include "Support.hpp"

#include "ui/ContactlessStatusIndicator.hpp"

namespace {

const std::string green = "res/images/ctls/leds/green.png";
const std::string black = "res/images/ctls/leds/black.png";

class LedTest : public test::PlatformTest {
protected:
    // The picture file and x of each image drawn, in order.
    static std::vector<std::string> drawn(ui::Widget& widget) {
        std::vector<std::string> out;
        for (const auto& call : test::drawCalls(widget, "CanvasDrawImg")) {
            const std::string file = xui_host::imageFile(call.args.back());
            out.push_back((file == green ? "on@" : file == black ? "off@" : "?@") + call.args[1]);
        }
        return out;
    }
    using Drawn = std::vector<std::string>;
};

TEST_F(LedTest, ANewLedIsDark_AndDrawsTheStatesPictureAtItsX) {
    ui::Led led(5, 2, 15, 15, green, black);
    EXPECT_EQ(drawn(led), Drawn{"off@5"});
    led.setX(40);
    led.setOn(true);
    EXPECT_EQ(drawn(led), Drawn{"on@40"});
    EXPECT_THROW(ui::Led(0, 0, 15, 15, "res/images/ctls/leds/missing.png", black), std::runtime_error);
}

TEST_F(LedTest, CopiesAndAssignmentsTakeStateAndPictures) {
    ui::Led lit(7, 2, 15, 15, green, black);
    lit.setOn(true);
    ui::Led copy(lit);
    EXPECT_EQ(drawn(copy), Drawn{"on@7"});

    ui::Led other(0, 0, 9, 9, black, green); // pictures the other way round
    other = lit;
    EXPECT_EQ(drawn(other), Drawn{"on@7"});
    EXPECT_EQ(test::box(other), "7 2 15 15");
    other.setOn(false); // its own lock and state from now on
    EXPECT_TRUE(lit.isOn());
    other = std::move(copy);
    EXPECT_EQ(drawn(other), Drawn{"on@7"});
    ui::Led& self = other;
    other = self;
    EXPECT_TRUE(other.isOn());
}

// Each LED centred in its slot, from 0 whatever its own x. The bound test refuses only indices
// above the count: the count passes it, with no LED there to read or switch.
TEST_F(LedTest, StripCentresEachLedInItsSlot_AndRefusesOnlyIndicesAboveTheCount) {
    ui::LedStrip strip(40, 0, 100, 24);
    for (int i = 0; i < 4; ++i)
        strip.addLed(ui::Led(0, 2, 15, 15, green, black));
    strip.setLed(2, true);
    EXPECT_EQ(drawn(strip), (Drawn{"off@6", "off@31", "on@56", "off@81"}));
    strip.setAll(true);
    for (unsigned i = 0; i < 4; ++i)
        EXPECT_TRUE(strip.getLed(i)) << i;
    strip.setLed(4, true);
    EXPECT_FALSE(strip.getLed(4));
    strip.setLed(5, false);
    EXPECT_FALSE(strip.getLed(5));
    strip.setAll(false);
    EXPECT_EQ(drawn(strip), (Drawn{"off@6", "off@31", "off@56", "off@81"}));

    ui::LedStrip one(0, 0, 100, 24);
    one.addLed(ui::Led(0, 2, 15, 15, green, black));
    EXPECT_EQ(drawn(one), Drawn{"off@43"});
}

} // namespace
