// Input prompts: a localized message centred on the screen above one text box, and the
// factories that build a prompt for each kind of entry.
#pragma once

#include "ui/Label.hpp"
#include "ui/TextBox.hpp"

#include <memory>
#include <string>
#include <vector>

namespace ui {

namespace utils {
// The kinds of prompt that input::create builds; any other value gives an empty prompt.
enum Prompts : int {
    DefaultNumeric = 0,
    DefaultAlphaNumeric = 1,
    NoPrompt = 2,
    NoPromptAlternate = 3,
    NumericDate = 4,
    NumericTime = 5,
    NumericIP = 6,
};
} // namespace utils

namespace input {

// A value type: copies share the text box and the message lines. Built on the application's
// thread; keys are then injected on the keypad thread while the rendering thread draws it.
// Without a text box (a default-constructed or empty prompt) every operation is a silent
// no-op, getInputText is "" and validateInputText false.
class InputPrompt {
public:
    InputPrompt();

    void injectKey(const device::input::Key& key);
    // Removes the last character typed.
    void clear();
    void clearAll();
    void maskPrompt(bool mask);
    void setTextboxText(const std::string& text);
    // The raw entry: the digits of an amount, not the amount shown.
    std::string getInputText() const;
    bool validateInputText() const;

    void setTextbox(std::shared_ptr<ITextComponent> textbox);
    // Replace the message, wrapped at 24 characters and centred on the screen. The text box
    // does not move: apply AlignCenter again to place it under a message of another height.
    // The old message is dropped before the lookup: an unknown identifier throws
    // LocalizationException and leaves the prompt with its text box alone.
    void setText(const StringId& text);
    // Only the label's text is used; a null label changes nothing.
    void setMessage(std::shared_ptr<ProxyLabel> label);

    // The message lines in order, then the text box.
    void draw(_XuiWindow* canvas);

private:
    friend void AlignCenter(const InputPrompt& prompt);

    std::shared_ptr<ITextComponent> textbox_;
    std::vector<std::shared_ptr<Widget>> elements_;
};

// Spreads the text box across the canvas, one line high, one line below the top of the
// message's last line (so straight under the message), and shows its entry formatted.
void AlignCenter(const InputPrompt& prompt);

// An integer between min and max, without leading zeros.
InputPrompt createNumericPrompt(long long min, long long max);
// An amount in minor units between min and max, shown as symbol, units, separator and
// exponent digits (£0.00).
InputPrompt createCurrencyPrompt(long long min, long long max, unsigned char exponent,
                                 const std::string& symbol, const std::string& separator);
// Multi-tap text of the allowed classes, min to max bytes long.
InputPrompt createTextPrompt(bool allowNumbers, bool allowSymbols, bool allowCharacters, unsigned min,
                             unsigned max);
// YYYYMMDD shown as YYYY/MM/DD, from 20150531 to 29991231.
InputPrompt createNumericDatePrompt();
// HHMMSS shown as HH:MM:SS, at most 235959 (hours and minutes are not range-checked).
InputPrompt createNumericTimePrompt();
// Twelve digits shown as four groups of three.
InputPrompt createNumericIPPrompt();
// Any amount in the terminal's default currency.
InputPrompt createDefaultCurrencyPrompt();
InputPrompt create(const utils::Prompts& kind);
// The same as create.
InputPrompt createWithDefaultValue(const utils::Prompts& kind);

} // namespace input
} // namespace ui

// Any digits; any multi-tap text. Outside the namespace, where applications have always
// found them.
ui::input::InputPrompt createDefaultNumericPrompt();
ui::input::InputPrompt createDefaultAlphaNumericPrompt();
