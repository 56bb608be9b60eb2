// The example screen's behaviour, as its team would write it on the testing kit: keys in,
// texts, LEDs, tones and the picture out.
#include "PayScreen.hpp"

#include <ui/kit/Golden.hpp>
#include <ui/kit/Matchers.hpp>
#include <ui/kit/Terminal.hpp>

#include <gtest/gtest.h>

namespace {

using ui::kit::HappenedInOrder;
using ui::kit::ShowsText;
using ui::kit::SoundedTones;

class PayScreenTest : public testing::Test {
protected:
    PayScreenTest() : terminal(options()) {
        pay::enableIndicator(terminal.ui());
        terminal.onTap([this](bool approved) { screen->cardTapped(approved); });
        terminal.show(screen);
    }

    static ui::kit::TerminalOptions options() {
        ui::kit::TerminalOptions options;
        options.strings = PAY_STRINGS;
        return options;
    }

    static std::string golden(const std::string& name) {
        return std::string(PAY_GOLDEN_DIR) + "/" + name + ".png";
    }

    ui::kit::Terminal terminal;
    std::shared_ptr<pay::PayScreen> screen = std::make_shared<pay::PayScreen>();
};

TEST_F(PayScreenTest, AnApprovedTapShowsApprovedAfterTheSuccessLedsAndTone) {
    terminal.type("1250");
    EXPECT_THAT(terminal.texts(), ShowsText("\xC2\xA3"
                                            "12.50"));
    terminal.press(XUI_KEY_ENTER);
    EXPECT_EQ(screen->amount(), 1250);
    EXPECT_THAT(terminal.texts(), ShowsText("Present card"));
    ASSERT_TRUE(terminal.waitForLeds("1000"));

    terminal.tap(true);

    EXPECT_THAT(terminal.texts(), ShowsText("Approved"));
    const auto timeline = terminal.timeline();
    EXPECT_THAT(timeline, SoundedTones({{1500, 500}}));
    EXPECT_THAT(timeline,
                HappenedInOrder({"leds 1000", "tone 1500 Hz 500 ms", "leds 1100", "leds 1110", "leds 1111"}));
    EXPECT_TRUE(ui::kit::matchesGolden(terminal.screen(), golden("approved")));
}

TEST_F(PayScreenTest, ADeclinedTapShowsDeclinedWithTheAlertTones) {
    terminal.type("500");
    terminal.press(XUI_KEY_ENTER);
    terminal.tap(false);
    ASSERT_TRUE(terminal.waitForTones(2));
    EXPECT_THAT(terminal.texts(), ShowsText("Declined"));
    EXPECT_THAT(terminal.timeline(), SoundedTones({{750, 200}, {750, 200}}));
}

TEST_F(PayScreenTest, EnterWithoutAnAmountAsksForNoCard) {
    terminal.press(XUI_KEY_ENTER);
    EXPECT_EQ(screen->amount(), 0);
    EXPECT_THAT(terminal.texts(), testing::Not(ShowsText("Present card")));
    EXPECT_TRUE(ui::kit::matchesGolden(terminal.screen(), golden("empty")));
}

} // namespace
