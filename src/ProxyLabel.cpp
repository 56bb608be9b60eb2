#include "ui/GraphicsDevice.hpp"
#include "ui/Label.hpp"
#include "ui/Xui.hpp"

#include <osal/localization.hpp>
#include <osal/log.hpp>
#include <osal/resource.hpp>

namespace ui {

ProxyLabel::ProxyLabel() : ProxyLabel(0, 0, 0, 0) {}

ProxyLabel::ProxyLabel(unsigned int x, unsigned int y, unsigned int width, unsigned int height)
    : Widget(x, y, width, height), label_(x, y, width, height) {}

ProxyLabel::ProxyLabel(const ProxyLabel& other)
    : Widget(other.getX(), other.getY(), other.getWidth(), other.getHeight()), label_(other.label_) {}

ProxyLabel::ProxyLabel(ProxyLabel&& other)
    : Widget(other.getX(), other.getY(), other.getWidth(), other.getHeight()), label_(other.label_) {}

ProxyLabel::~ProxyLabel() = default;

ProxyLabel& ProxyLabel::operator=(const ProxyLabel& other) {
    label_ = other.label_;
    return *this;
}

ProxyLabel& ProxyLabel::operator=(ProxyLabel&& other) {
    label_ = other.label_;
    return *this;
}

void ProxyLabel::setVisible(bool visible) {
    Widget::setVisible(visible);
    label_.setVisible(visible);
}
void ProxyLabel::setX(unsigned int x) {
    Widget::setX(x);
    label_.setX(x);
}
void ProxyLabel::setY(unsigned int y) {
    Widget::setY(y);
    label_.setY(y);
}
void ProxyLabel::setWidth(unsigned int width) {
    Widget::setWidth(width);
    label_.setWidth(width);
}
void ProxyLabel::setHeight(unsigned int height) {
    Widget::setHeight(height);
    label_.setHeight(height);
}

void ProxyLabel::setText(int id) {
    try {
        label_.setText(Localization::getLocalizedString(id));
        Widget::setWidth(label_.getWidth());
        Widget::setHeight(label_.getHeight());
    } catch (const LocalizationException& e) {
        // A missing translation must not take the screen down: keep the old text, say why.
        LogException("ProxyLabel", __LINE__, e);
    }
}

void ProxyLabel::setText(const std::string& text) {
    label_.setText(text);
}
std::string ProxyLabel::getText() const {
    return label_.getText();
}
void ProxyLabel::clearText() {
    label_.setText("");
}
void ProxyLabel::setPrefix(const std::string& prefix) {
    label_.setText(prefix + label_.getText());
}
void ProxyLabel::setSuffix(const std::string& suffix) {
    label_.setText(label_.getText() + suffix);
}
void ProxyLabel::setColor(unsigned int color) {
    label_.setColor(color);
}
void ProxyLabel::setFontSize(unsigned int size) {
    label_.setFontSize(size);
}
void ProxyLabel::setAlignment(const utils::Origin& alignment) {
    label_.setAlignment(alignment);
}
void ProxyLabel::verticalAlignment(bool centred) {
    label_.verticalAlignment(centred);
}

void ProxyLabel::draw(_XuiWindow* canvas) {
    label_.draw(canvas);
}

Decorator::Decorator(std::unique_ptr<Widget> inner) : Decorator(0, 0, 0, 0, std::move(inner)) {}

Decorator::Decorator(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                     std::unique_ptr<Widget> inner)
    : Widget(x, y, width, height), inner_(std::move(inner)) {}

Decorator::~Decorator() = default;

void Decorator::draw(_XuiWindow* canvas) {
    if (inner_)
        inner_->draw(canvas);
}

namespace {
unsigned screenWidth() {
    return static_cast<unsigned>(GetMainCanvasWidth());
}
} // namespace

Title::Title(StringId text, std::unique_ptr<Widget> inner)
    : Title(0, 0, screenWidth(), fonts::getFontSize(), text, std::move(inner)) {}

Title::Title(unsigned int x, unsigned int y, unsigned int width, unsigned int height, StringId text,
             std::unique_ptr<Widget> inner)
    : Decorator(x, y, width, height, std::move(inner)), caption_(x, y, width, height) {
    caption_.setX(x);
    caption_.setY(y);
    caption_.setWidth(width);
    caption_.setHeight(height);
    caption_.setColor(resource::ResourceMapping::getResourceColor(resource::BRAND_MAIN_BACKGROUND));
    caption_.setAlignment(utils::Centre);
    caption_.setText(text);
}

Title::~Title() = default;

void Title::setText(StringId text) {
    caption_.setText(text);
}
void Title::setString(const std::string& text) {
    caption_.setText(text);
}

void Title::draw(_XuiWindow* canvas) {
    Xui::CanvasDrawRect(
        canvas, caption_.getX(), caption_.getY(), screenWidth(), caption_.getHeight(),
        fonts::intToXuiColor(resource::ResourceMapping::getResourceColor(resource::BRAND_ACCENT)), 0, 1);
    caption_.draw(canvas);
    Decorator::draw(canvas);
}

} // namespace ui
