// The text box: one line of typed text, checked by a validation policy and shown through a
// format policy, and the interface through which prompts hold any of its instantiations.
#pragma once

#include "ui/Label.hpp"
#include "ui/TextEntry.hpp"
#include "ui/Xui.hpp"

#include <osal/resource.hpp>

#include <mutex>
#include <string>

namespace ui {

// A widget that takes keys and holds a raw entry (the bare digits or characters typed).
class ITextComponent : public Widget {
public:
    using Widget::Widget;

    // Removes the last byte of the entry.
    virtual void clear() = 0;
    // Empties the entry and the display, without formatting.
    virtual void clearAll() = 0;
    // Shows the entry formatted again, after the format policy's settings changed.
    virtual void configureFormat() = 0;
    virtual void maskDisplayString(bool mask) = 0;
    virtual void injectKey(const device::input::Key& key) = 0;
    // Replaces the entry and shows it unformatted until the next key, clear or configureFormat.
    virtual void setText(const std::string& text) = 0;
    // The raw entry, never the formatted one.
    virtual std::string getText() = 0;
    virtual bool validateText() const = 0;
};

// V decides what each key does to the entry and whether it is acceptable (TextEntry.hpp); F
// turns the entry into the text shown, centred in the box's colour (branding colour 12). Both
// are bases, so their setters (setMax, setSymbol...) are called on the box itself.
//
// Keys arrive on the keypad thread while the rendering thread draws. A masked box draws one
// "*" per byte of the entry, and once it has, switching the mask off shows the entry again
// only at the next key, clear or configureFormat: intended, as on the terminal. Key handling
// and drawing never interleave, so a frame never shows what a masked box holds.
template <class V, class F> class TextBox : public ITextComponent, public V, public F {
public:
    // The box shows the formatted empty entry at once (£0.00 for an amount).
    TextBox(unsigned x, unsigned y, unsigned width, unsigned height)
        : ITextComponent(x, y, width, height), label_(x, y, width, height) {
        label_.setColor(resource::ResourceMapping::getResourceColor(resource::BRAND_INPUT_TEXT));
        label_.setAlignment(utils::Centre);
        label_.setFontSize(fonts::getFontSize());
        label_.setText(F::formatValue(text_));
    }

    void setX(unsigned x) override {
        Widget::setX(x);
        label_.setX(x);
    }
    void setY(unsigned y) override {
        Widget::setY(y);
        label_.setY(y);
    }
    void setWidth(unsigned width) override {
        Widget::setWidth(width);
        label_.setWidth(width);
    }
    void setHeight(unsigned height) override {
        Widget::setHeight(height);
        label_.setHeight(height);
    }

    void clear() override {
        std::lock_guard<std::mutex> lock(mutex_);
        if (!text_.empty())
            text_.pop_back();
        label_.setText(F::formatValue(text_));
    }

    void clearAll() override {
        std::lock_guard<std::mutex> lock(mutex_);
        text_.clear();
        label_.setText("");
    }

    void configureFormat() override {
        std::lock_guard<std::mutex> lock(mutex_);
        label_.setText(F::formatValue(text_));
    }

    void maskDisplayString(bool mask) override {
        std::lock_guard<std::mutex> lock(mutex_);
        masked_ = mask;
    }

    void injectKey(const device::input::Key& key) override {
        std::lock_guard<std::mutex> lock(mutex_);
        V::processKey(text_, key);
        label_.setText(F::formatValue(text_));
    }

    void setText(const std::string& text) override {
        std::lock_guard<std::mutex> lock(mutex_);
        text_ = text;
        label_.setText(text_);
    }

    std::string getText() override {
        std::lock_guard<std::mutex> lock(mutex_);
        return text_;
    }

    bool validateText() const override {
        std::lock_guard<std::mutex> lock(mutex_);
        return V::validate(text_);
    }

    void draw(_XuiWindow* canvas) override {
        if (!isVisible())
            return;
        std::lock_guard<std::mutex> lock(mutex_);
        if (masked_)
            label_.setText(std::string(text_.size(), '*'));
        label_.draw(canvas);
    }

private:
    // Serialises key handling with drawing; inside it only the label's and Xui's locks are taken.
    mutable std::mutex mutex_;
    bool masked_ = false;
    std::string text_;
    Label label_;
};

// The instantiations the prompt factories use are compiled once, in the library.
extern template class TextBox<numeric_policy, format_policy>;
extern template class TextBox<numeric_policy, FormatDatePolicy>;
extern template class TextBox<numeric_policy, empty_format_policy>;
extern template class TextBox<numeric_policy, default_format_policy>;
extern template class TextBox<numeric_policy_time, FormatTimePolicy>;
extern template class TextBox<numeric_policy_ipAddress, FormatIPAdressPolicy>;
extern template class TextBox<alpha_numeric_policy, empty_format_policy>;
extern template class TextBox<alpha_numeric_policy, default_format_policy>;
extern template class TextBox<default_numeric_policy, empty_format_policy>;
extern template class TextBox<default_numeric_policy, default_format_policy>;
extern template class TextBox<default_alpha_numeric_policy<true, true, true>, empty_format_policy>;
extern template class TextBox<default_alpha_numeric_policy<true, true, true>, default_format_policy>;

} // namespace ui
