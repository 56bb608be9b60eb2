#include "ui/GraphicsDevice.hpp"
#include "ui/Prompt.hpp"

#include <osal/localization.hpp>

namespace ui::input {

InputPrompt::InputPrompt() = default;

void InputPrompt::injectKey(const device::input::Key& key) {
    if (textbox_)
        textbox_->injectKey(key);
}
void InputPrompt::clear() {
    if (textbox_)
        textbox_->clear();
}
void InputPrompt::clearAll() {
    if (textbox_)
        textbox_->clearAll();
}
void InputPrompt::maskPrompt(bool mask) {
    if (textbox_)
        textbox_->maskDisplayString(mask);
}
void InputPrompt::setTextboxText(const std::string& text) {
    if (textbox_)
        textbox_->setText(text);
}
std::string InputPrompt::getInputText() const {
    return textbox_ ? textbox_->getText() : std::string();
}
bool InputPrompt::validateInputText() const {
    return textbox_ && textbox_->validateText();
}

void InputPrompt::setTextbox(std::shared_ptr<ITextComponent> textbox) {
    textbox_ = std::move(textbox);
}

void InputPrompt::setText(const StringId& text) {
    // The old message goes first: an unknown identifier leaves the prompt with its box alone.
    elements_.clear();
    elements_ = centerOfScreenFormatting(Localization::getLocalizedString(text));
}

void InputPrompt::setMessage(std::shared_ptr<ProxyLabel> label) {
    if (!label)
        return;
    elements_.clear();
    elements_ = centerOfScreenFormatting(label->getText());
}

void InputPrompt::draw(_XuiWindow* canvas) {
    for (const auto& element : elements_)
        if (element)
            element->draw(canvas);
    if (textbox_)
        textbox_->draw(canvas);
}

void AlignCenter(const InputPrompt& prompt) {
    if (!prompt.textbox_)
        return;
    ITextComponent& box = *prompt.textbox_;
    box.setWidth(static_cast<unsigned>(GetMainCanvasWidth()));
    box.setHeight(fonts::getFontSize());
    box.setY(GetYFromLastTextElement(prompt.elements_) + fonts::getFontSize());
    box.configureFormat();
}

namespace internal {

enum class Box { Empty, OneLine };

// A prompt around a new text box whose policies configure() sets; the message is empty until
// the application sets one.
template <class V, class F, class Configure> InputPrompt create(Box size, Configure configure) {
    InputPrompt prompt;
    auto box = std::make_shared<TextBox<V, F>>(0, 0, 0, size == Box::OneLine ? fonts::getFontSize() : 0);
    configure(*box);
    auto message = std::make_shared<ProxyLabel>(0, 0, 0, fonts::getFontSize());
    message->setAlignment(utils::Centre);
    if (size == Box::OneLine) {
        prompt.setTextbox(box);
        prompt.setMessage(message);
    } else {
        prompt.setMessage(message);
        prompt.setTextbox(box);
    }
    AlignCenter(prompt);
    return prompt;
}

template <class V, class F> InputPrompt create(Box size) {
    return create<V, F>(size, [](TextBox<V, F>&) {});
}

} // namespace internal

using internal::Box;

InputPrompt createNumericPrompt(long long min, long long max) {
    return internal::create<numeric_policy, empty_format_policy>(Box::Empty, [&](auto& box) {
        box.setMin(min);
        box.setMax(max);
    });
}

InputPrompt createCurrencyPrompt(long long min, long long max, unsigned char exponent,
                                 const std::string& symbol, const std::string& separator) {
    return internal::create<numeric_policy, format_policy>(Box::Empty, [&](auto& box) {
        box.setMin(min);
        box.setMax(max);
        box.setSymbol(symbol);
        box.setExponent(exponent);
        box.setSeparator(separator);
    });
}

InputPrompt createTextPrompt(bool allowNumbers, bool allowSymbols, bool allowCharacters, unsigned min,
                             unsigned max) {
    return internal::create<alpha_numeric_policy, empty_format_policy>(Box::Empty, [&](auto& box) {
        box.allowNumbers(allowNumbers);
        box.allowSymbols(allowSymbols);
        box.allowCharacters(allowCharacters);
        box.setMin(min);
        box.setMax(max);
    });
}

InputPrompt createNumericDatePrompt() {
    return internal::create<numeric_policy, FormatDatePolicy>(Box::Empty, [](auto& box) {
        box.setMin(20150531);
        box.setMax(29991231);
    });
}

InputPrompt createNumericTimePrompt() {
    return internal::create<numeric_policy_time, FormatTimePolicy>(Box::Empty, [](auto& box) {
        box.setMin(0);
        box.setMax(235959);
    });
}

InputPrompt createNumericIPPrompt() {
    return internal::create<numeric_policy_ipAddress, FormatIPAdressPolicy>(Box::Empty, [](auto& box) {
        box.setMin(0);
        box.setMax(255255255255LL);
    });
}

InputPrompt createDefaultCurrencyPrompt() {
    return internal::create<default_numeric_policy, default_format_policy>(Box::OneLine);
}

InputPrompt create(const utils::Prompts& kind) {
    switch (kind) {
    case utils::DefaultNumeric: {
        InputPrompt prompt = createDefaultNumericPrompt();
        AlignCenter(prompt);
        return prompt;
    }
    case utils::DefaultAlphaNumeric: {
        InputPrompt prompt = createDefaultAlphaNumericPrompt();
        AlignCenter(prompt);
        return prompt;
    }
    case utils::NumericDate:
        return createNumericDatePrompt();
    case utils::NumericTime:
        return createNumericTimePrompt();
    case utils::NumericIP:
        return createNumericIPPrompt();
    default:
        return InputPrompt();
    }
}

InputPrompt createWithDefaultValue(const utils::Prompts& kind) {
    return create(kind);
}

} // namespace ui::input

ui::input::InputPrompt createDefaultNumericPrompt() {
    using namespace ui::input;
    return internal::create<default_numeric_policy, empty_format_policy>(internal::Box::OneLine);
}

ui::input::InputPrompt createDefaultAlphaNumericPrompt() {
    using namespace ui::input;
    return internal::create<default_alpha_numeric_policy<true, true, true>, empty_format_policy>(
        internal::Box::OneLine);
}
