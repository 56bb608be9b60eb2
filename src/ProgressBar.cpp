#include "ui/ProgressBar.hpp"

#include "ui/Xui.hpp"

#include <osal/resource.hpp>

#include <algorithm>

namespace ui {

namespace {
unsigned colour(resource::BrandingColorId id) {
    return resource::ResourceMapping::getResourceColor(id);
}
} // namespace

ProgressBar::ProgressBar(unsigned int width, unsigned int height)
    : ProgressBar(0, 0, width, height, colour(resource::BRAND_PROGRESS_FRAME),
                  colour(resource::BRAND_PROGRESS_BACKGROUND), colour(resource::BRAND_PROGRESS_FILL),
                  colour(resource::BRAND_PROGRESS_FULL)) {}

ProgressBar::ProgressBar(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                         unsigned int frameColour, unsigned int backgroundColour, unsigned int barColour,
                         unsigned int fullColour)
    : Widget(x, y, width, height), frameColour_(frameColour), backgroundColour_(backgroundColour),
      barColour_(barColour), fullColour_(fullColour) {
    const unsigned d = inset();
    innerX_ = x + d;
    innerY_ = y + d;
    innerWidth_ = width - 2 * d;
    innerHeight_ = height - 2 * d;
    barX_ = x + 3 * d;
    barY_ = y + 3 * d;
    barHeight_ = height - 6 * d;
    fullWidth_ = width - 6 * d;
}

void ProgressBar::setProgress(unsigned int percent) {
    barWidth_ = std::min(percent, 100u) * fullWidth_ / 100;
}

void ProgressBar::setX(unsigned int x) {
    Widget::setX(x);
    innerX_ = x + inset();
    barX_ = x + 3 * inset();
}

void ProgressBar::setY(unsigned int y) {
    Widget::setY(y);
    innerY_ = y + inset();
    barY_ = y + 3 * inset();
}

void ProgressBar::setWidth(unsigned int width) {
    const double ratio = fullWidth_ == 0 ? 0.0 : static_cast<double>(barWidth_) / fullWidth_;
    Widget::setWidth(width);
    const unsigned d = inset();
    innerWidth_ = width - 2 * d;
    fullWidth_ = width - 6 * d;
    barWidth_ = static_cast<unsigned>(fullWidth_ * ratio);
    setX(getX());
}

void ProgressBar::setHeight(unsigned int height) {
    Widget::setHeight(height);
    const unsigned d = inset();
    innerHeight_ = height - 2 * d;
    barHeight_ = innerHeight_ - 4 * d;
    setY(getY());
}

void ProgressBar::draw(_XuiWindow* canvas) {
    if (!isVisible())
        return;
    Xui::CanvasDrawRect(canvas, getX(), getY(), getWidth(), getHeight(), fonts::intToXuiColor(frameColour_),
                        0, 1);
    Xui::CanvasDrawRect(canvas, innerX_, innerY_, innerWidth_, innerHeight_,
                        fonts::intToXuiColor(backgroundColour_), 0, 1);
    const unsigned fill = barWidth_ == fullWidth_ ? fullColour_ : barColour_;
    Xui::CanvasDrawRect(canvas, barX_, barY_, barWidth_, barHeight_, fonts::intToXuiColor(fill), 0, 1);
}

} // namespace ui
