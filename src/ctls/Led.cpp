#include "ui/ContactlessStatusIndicator.hpp"

namespace ui {

Led::Led(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
         const std::string& onImagePath, const std::string& offImagePath)
    : Widget(x, y, width, height), onImage_(onImagePath, x, y, width, height),
      offImage_(offImagePath, x, y, width, height) {}

Led::Led(const Led& other)
    : Widget(other.getX(), other.getY(), other.getWidth(), other.getHeight()), on_(other.isOn()),
      onImage_(other.onImage_), offImage_(other.offImage_) {}

Led::Led(Led&& other)
    : Widget(other.getX(), other.getY(), other.getWidth(), other.getHeight()), on_(other.isOn()),
      onImage_(std::move(other.onImage_)), offImage_(std::move(other.offImage_)) {}

Led::~Led() = default;

Led& Led::operator=(const Led& other) {
    if (this != &other) {
        takeBoxAndState(other);
        onImage_ = other.onImage_;
        offImage_ = other.offImage_;
    }
    return *this;
}

Led& Led::operator=(Led&& other) {
    if (this != &other) {
        takeBoxAndState(other);
        onImage_ = std::move(other.onImage_);
        offImage_ = std::move(other.offImage_);
    }
    return *this;
}

// The lock stays this LED's own.
void Led::takeBoxAndState(const Led& other) {
    setX(other.getX());
    setY(other.getY());
    setWidth(other.getWidth());
    setHeight(other.getHeight());
    setOn(other.isOn());
}

bool Led::isOn() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return on_;
}

void Led::setOn(bool on) {
    std::lock_guard<std::mutex> lock(mutex_);
    on_ = on;
}

void Led::draw(_XuiWindow* window) {
    if (!isVisible())
        return;
    Image& picture = isOn() ? onImage_ : offImage_;
    picture.setX(getX());
    picture.draw(window);
}

LedStrip::LedStrip(unsigned int x, unsigned int y, unsigned int width, unsigned int height)
    : Widget(x, y, width, height) {}

LedStrip::~LedStrip() = default;

void LedStrip::addLed(const Led& led) {
    leds_.push_back(led);
    const unsigned spacing = getWidth() / static_cast<unsigned>(leds_.size());
    for (unsigned i = 0; i < leds_.size(); ++i)
        leds_[i].setX((i + 1) * spacing - spacing / 2 - leds_[i].getWidth() / 2);
}

// Only an index above the count fails the test; the count itself passes and finds no LED.
bool LedStrip::getLed(unsigned int index) const {
    if (index > leds_.size())
        return false;
    return index < leds_.size() && leds_[index].isOn();
}

void LedStrip::setLed(unsigned int index, bool on) {
    if (index > leds_.size())
        return;
    if (index < leds_.size())
        leds_[index].setOn(on);
}

void LedStrip::setAll(bool on) {
    for (Led& each : leds_)
        each.setOn(on);
}

void LedStrip::draw(_XuiWindow* window) {
    if (!isVisible())
        return;
    for (Led& each : leds_)
        each.draw(window);
}

} // namespace ui
