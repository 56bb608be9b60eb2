// The example screen's behaviour, as its team would write it on the testing kit: keys in,
// texts, LEDs, tones and the picture out, and every screen fitting in each language.
#include "PayScreen.hpp"

#include <ui/kit/Golden.hpp>
#include <ui/kit/Matchers.hpp>
#include <ui/kit/Terminal.hpp>

#include <osal/host.hpp>

#include <gtest/gtest.h>

namespace {

using ui::kit::FitsOnScreen;
using ui::kit::HappenedInOrder;
using ui::kit::ShowsText;
using ui::kit::SoundedTones;

class PayScreenTest : public testing::TestWithParam<std::string> {
protected:
    PayScreenTest() : terminal(options()) {
        terminal.ui().enableContactless({0, 0, 68, 32}, CtlsStatusIndicatorConfiguration{});
        terminal.onTap([this](bool approved) { screen->cardTapped(approved); });
        terminal.show(screen);
    }

    // The example's strings, in the language the test is given ("de": de.txt beside en.txt).
    static ui::kit::TerminalOptions options() {
        ui::kit::TerminalOptions options;
        options.strings = PAY_STRINGS;
        if (const auto* test = testing::UnitTest::GetInstance()->current_test_info(); test->value_param())
            options.language = GetParam();
        return options;
    }

    // Enter asks for a card and readies the indicator, whose light a test waits for (see below).
    void askForACard(const std::string& amount) {
        terminal.type(amount);
        terminal.press(XUI_KEY_ENTER);
        ASSERT_TRUE(terminal.waitForLeds("1000"));
    }

    app::AppThread thread; // first: it outlives any key the terminal still delivers
    ui::kit::Terminal terminal;
    std::shared_ptr<pay::PayScreen> screen = std::make_shared<pay::PayScreen>(thread);
};

// As the README shows it, in German.
TEST(PayScreen, AnApprovedTapShowsApproved) {
    ui::kit::TerminalOptions options; // 320 x 240, 32-pixel status bar, clock pinned
    options.strings = PAY_STRINGS;    // the application's en.txt (examples/pay/CMakeLists.txt names it)
    options.language = "de";          // de.txt beside en.txt; formats stay the terminal's
    app::AppThread thread;            // where the screen's key handlers hand their work
    ui::kit::Terminal terminal(options);
    // The LEDs in the header's left corner, with the card schemes' default tones: success
    // 1500 Hz for 500 ms; the alert 750 Hz for 200 ms, twice.
    terminal.ui().enableContactless({0, 0, 68, 32}, CtlsStatusIndicatorConfiguration{});
    auto screen = std::make_shared<pay::PayScreen>(thread);
    terminal.onTap([&](bool approved) { screen->cardTapped(approved); });
    terminal.show(screen);         // the screen is on the panel when this returns
    terminal.type("1250");         // through Xui, the keypad thread and the window
    terminal.press(XUI_KEY_ENTER); // asks for a card: the indicator goes Ready
    EXPECT_THAT(terminal.fit(), ui::kit::FitsOnScreen());
    // The success sequence lights LEDs 2 to 4 over what Ready lit: a card tapped before the
    // indicator's worker has drawn Ready would show 0111. Wait for the light, as a person does.
    ASSERT_TRUE(terminal.waitForLeds("1000"));
    terminal.tap(true);
    EXPECT_THAT(terminal.texts(), ui::kit::ShowsText("Genehmigt"));
    EXPECT_THAT(terminal.timeline(), ui::kit::SoundedTones({{1500, 500}}));
    EXPECT_THAT(terminal.timeline(), ui::kit::HappenedInOrder({"leds 1100", "leds 1110", "leds 1111"}));
    EXPECT_TRUE(ui::kit::matchesGolden(terminal.screen(), "golden/approved_de.png"));
}

TEST_F(PayScreenTest, ADeclinedTapShowsDeclinedWithTheAlertTones) {
    askForACard("500");
    terminal.tap(false);
    ASSERT_TRUE(terminal.waitForTones(2));
    EXPECT_THAT(terminal.texts(), ShowsText("Declined"));
    EXPECT_THAT(terminal.timeline(), SoundedTones({{750, 200}, {750, 200}}));
}

// A string the terminal does not have: the key handler throws, the library logs it and goes on,
// and the test, which expects it, takes it (one not taken would fail the test).
TEST_F(PayScreenTest, AStringTheTerminalLacksIsLoggedAndTheEntryStays) {
    osal::host::clearStrings();
    terminal.type("500");
    terminal.press(XUI_KEY_ENTER);
    EXPECT_THAT(terminal.takeExceptions(),
                testing::ElementsAre(testing::HasSubstr("no localized string with id 2")));
}

// Every screen of a payment fits the panel, in each language the terminal may speak; Enter
// without an amount asks for no card.
TEST_P(PayScreenTest, EveryScreenFits) {
    terminal.press(XUI_KEY_ENTER);
    EXPECT_EQ(screen->amount(), 0);
    EXPECT_THAT(terminal.texts(),
                testing::Not(ShowsText(GetParam() == "de" ? "Karte vorhalten" : "Present card")));
    EXPECT_THAT(terminal.fit(), FitsOnScreen());
    askForACard("99999");
    EXPECT_THAT(terminal.fit(), FitsOnScreen());
    terminal.tap(false);
    ASSERT_TRUE(terminal.waitForTones(2));
    EXPECT_THAT(terminal.fit(), FitsOnScreen());
}

INSTANTIATE_TEST_SUITE_P(Languages, PayScreenTest, testing::Values("en", "de"));

} // namespace
