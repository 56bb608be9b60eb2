#include "Support.hpp"

#include "ui/Prompt.hpp"
#include "ui/UserInterface.hpp"

#include <ui/kit/Terminal.hpp>

#include <sstream>

namespace {

using test::pound;
using Lines = std::vector<std::string>;

using namespace std::chrono_literals;

// The whole stack on the testing kit: keys pushed into the graphics stand-in reach the prompt
// on the keypad thread, and the rendering thread draws it. Multi-tap runs on the virtual clock.
class InputPromptTest : public ::testing::Test {
protected:
    InputPromptTest() : terminal(options()) {
        osal::host::useVirtualTime(true);
        xui_host::setKeyWaitLimit(10ms);
        xui_host::setTracing(true);
    }

    // A 24-pixel status bar, and the strings each test sets.
    static ui::kit::TerminalOptions options() {
        ui::kit::TerminalOptions options;
        options.statusbar = 24;
        options.strings.clear();
        return options;
    }

    void show(const ui::input::InputPrompt& prompt) {
        osal::host::advanceTime(750ms); // whatever was typed before, a new character starts
        view = std::make_shared<app::PromptScreen>(prompt, 0, 0, 320, 216); // as an application shows one
        terminal.show(view);
    }

    // Presses one key and returns the entry as the next frame shows it ("" when it draws nothing).
    std::string press(char key) {
        terminal.press(key);
        return entryShown();
    }

    // The text box's text in the next frame: what it draws in the input colour.
    std::string entryShown() {
        std::string entry;
        for (const auto& text : terminal.texts())
            if (text.colour == 0xffffffffu)
                entry += text.text;
        return entry;
    }

    ui::kit::Terminal terminal;
    std::shared_ptr<app::PromptScreen> view;
};

// Each kind of prompt as it is typed, in steps "keys:shown" ('C' clear, 'X' cancel, 'P' a pause of
// the multi-tap interval): the entry the frame shows after the keys; at the end whether the
// entry validates and what it holds. A time's sixth digit above 23:59:59 is refused, yet 99:59:5
// validates (no range check); at a text's maximum even a repeat, which would replace, is refused.
TEST_F(InputPromptTest, EachKindShowsItsEntryAsTyped) {
    using namespace ui::input;
    osal::host::setCurrency({"$", ".", 2});
    const struct {
        InputPrompt prompt;
        std::string steps;
        bool valid;
        std::string raw;
    } cases[] = {
        {createCurrencyPrompt(1, 99999, 2, pound, "."),
         ":£0.00 0:£0.00 5:£0.05 0:£0.50 123:£501.23 4:£501.23 C:£50.12", true, "5012"},
        {createNumericPrompt(10, 100), "0: 1:1 00:100 5:100 X: 7:7", false, "7"}, // below the minimum
        {createDefaultCurrencyPrompt(), "0:$0.00 1:$0.01 5:$0.15", true, "015"},
        {createNumericDatePrompt(), "2024:2024 1:2024/1 1:2024/11 15:2024/11/15 0:2024/11/15", true,
         "20241115"},
        {createNumericTimePrompt(), "995:99:5 9:99:59 59:99:59:5 X: 23595:23:59:5 9:23:59:59 0:23:59:59",
         true, "235959"},
        {createNumericIPPrompt(), "19216800101:192.168.001.01 0:192.168.001.010 9:192.168.001.010", true,
         "192168001010"},
        {createTextPrompt(false, false, true, 2, 3), "2:A 2:B 2:C P2:CA 3:CAD 3:CAD C:CA", true, "CA"},
        {createTextPrompt(false, false, true, 2, 3), "222:C", false, "C"},
        {createTextPrompt(true, true, false, 1, 4), "1:1 1:! P2:!2 9:!29", true, "!29"},
        {createNumericTimePrompt(), "23596:23:59:6 0:23:59:6 X: 000000:00:00:00", true, "000000"},
        {createNumericDatePrompt(), "29991231:2999/12/31 C:2999/12/3 2:2999/12/3", false, "2999123"},
        {createNumericIPPrompt(), "000000000000:000.000.000.000", true, "000000000000"},
        {createDefaultAlphaNumericPrompt(), "0:0 0:. 0:_ 1:_1 1:_! P2:_!2 2:_!A", true, "_!A"},
        {createCurrencyPrompt(100, 99999, 2, pound, "."), "99:£0.99", false, "99"}, // below the minimum
    };
    for (const auto& c : cases) {
        show(c.prompt);
        std::istringstream steps(c.steps);
        for (std::string step; steps >> step;) {
            const auto colon = step.find(':');
            for (char key : step.substr(0, colon)) {
                if (key == 'P')
                    osal::host::advanceTime(750ms);
                else
                    terminal.press(key == 'C'   ? int(XUI_KEY_CLEAR)
                                   : key == 'X' ? int(XUI_KEY_CANCEL)
                                                : int(key));
            }
            EXPECT_EQ(entryShown(), step.substr(colon + 1)) << c.steps << ", at " << step;
        }
        EXPECT_EQ(view->prompt().validateInputText(), c.valid) << c.steps;
        EXPECT_EQ(view->prompt().getInputText(), c.raw) << c.steps;
    }
    show(createNumericDatePrompt());
    view->prompt().setTextboxText("2015053");
    EXPECT_EQ(press('0'), "2015/05/30");
    EXPECT_FALSE(view->prompt().validateInputText()); // the day before the minimum
    show(createNumericPrompt(1, 100));
    view->prompt().setTextboxText("1a");
    EXPECT_EQ(press('5'), "1a5"); // read as 1: reading stops at the first character not a digit
}

TEST_F(InputPromptTest, CreateBuildsEachKind_AndNothingForTheOthers) {
    struct Kind {
        int kind;
        std::string keys, shown;
        bool valid;
    };
    const Kind cases[] = {
        {0, "07", "07", true},      {1, "2", "2", true},           {2, "5", "", false},
        {3, "5", "", false},        {4, "20241", "2024/1", false}, {5, "093", "09:3", true},
        {6, "1921", "192.1", true}, {7, "5", "", false},           {-1, "5", "", false},
    };
    for (const auto& c : cases) {
        const auto kind = static_cast<ui::utils::Prompts>(c.kind);
        show(c.kind % 2 ? ui::input::create(kind) : ui::input::createWithDefaultValue(kind));
        std::string shown;
        for (char k : c.keys)
            shown = press(k);
        EXPECT_EQ(shown, c.shown) << "kind " << c.kind;
        EXPECT_EQ(view->prompt().validateInputText(), c.valid) << "kind " << c.kind;
    }
}

TEST_F(InputPromptTest, TheBoxSitsOneEmptyLineBelowTheMessage_OnceAlignedAgain) {
    osal::host::setString(500, "Enter the amount of the sale");
    auto prompt = ui::input::createCurrencyPrompt(1, 999, 2, pound, ".");
    prompt.setText(500);
    show(prompt);
    const auto placed = [&] {
        std::vector<std::string> out;
        for (const auto& text : terminal.texts())
            out.push_back(std::to_string(text.y) + " " + text.text);
        return out;
    };
    // Built without a message, the box sits one line below the top; the message does not move it.
    EXPECT_EQ(placed(), (Lines{"88 Enter the amount of the", "108 sale", "20 " + pound + "0.00"}));
    ui::input::AlignCenter(prompt); // the copy shares the box
    EXPECT_EQ(placed(), (Lines{"88 Enter the amount of the", "108 sale", "128 " + pound + "0.00"}));
    EXPECT_EQ(terminal.texts().back().x,
              160 - ui::fonts::GetTextWidth((pound + "0.00").c_str()) / 2); // centred

    // A null label keeps the message; an unknown identifier has already dropped it when it throws.
    view->prompt().setMessage(nullptr);
    EXPECT_EQ(placed().size(), 3u);
    EXPECT_THROW(view->prompt().setText(404), LocalizationException);
    EXPECT_EQ(placed(), (Lines{"128 " + pound + "0.00"}));
    auto label = std::make_shared<ui::ProxyLabel>(5, 5, 300, 20);
    label->setText(std::string("Thank you"));
    view->prompt().setMessage(label);
    EXPECT_EQ(placed(), (Lines{"98 Thank you", "128 " + pound + "0.00"}));

    // A box of the application's own takes the canvas's width and a line's height.
    auto own = std::make_shared<ui::TextBox<numeric_policy, empty_format_policy>>(7, 7, 7, 7);
    view->prompt().setTextbox(own);
    ui::input::AlignCenter(view->prompt());
    EXPECT_EQ(std::to_string(own->getWidth()) + " x " + std::to_string(own->getHeight()), "320 x 20");
}

TEST_F(InputPromptTest, AnEmptyPromptIgnoresEverything) {
    ui::input::InputPrompt prompt;
    prompt.injectKey(device::input::KEY_1);
    prompt.setTextboxText("1");
    prompt.maskPrompt(true);
    prompt.clear();
    prompt.clearAll();
    EXPECT_EQ(prompt.getInputText(), "");
    EXPECT_FALSE(prompt.validateInputText());
    xui_host::clearTrace();
    prompt.draw(XuiRootCanvas());
    EXPECT_TRUE(xui_host::trace().empty());
}

// Whole screens, as a cardholder sees them: after an amount, in the middle of a multi-tap cycle,
// and masked.
TEST_F(InputPromptTest, WholeScreensMatchTheReviewedPictures) {
    auto masked = ui::input::createNumericPrompt(0, 999999);
    masked.maskPrompt(true);
    const struct {
        ui::input::InputPrompt prompt;
        StringId message;
        std::string keys, golden, raw;
    } screens[] = {
        {ui::input::createCurrencyPrompt(1, 99999, 2, pound, "."), 21, "1250", "prompt_currency", "1250"},
        {ui::input::createTextPrompt(true, true, true, 1, 20), 26, "66", "prompt_text_multitap", "M"},
        {masked, 27, "4711", "prompt_masked", "4711"}};
    for (auto screen : screens) {
        screen.prompt.setText(screen.message);
        ui::input::AlignCenter(screen.prompt);
        show(screen.prompt);
        for (char k : screen.keys)
            terminal.press(k);
        EXPECT_TRUE(ui::kit::matchesGolden(terminal.screen(), screen.golden + ".png"));
        EXPECT_EQ(view->prompt().getInputText(), screen.raw);
    }
}

} // namespace
