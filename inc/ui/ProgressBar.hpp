// A horizontal progress bar: an outer frame, an inner background and a fill.
#pragma once

#include "ui/Widget.hpp"

namespace ui {

// The insets are one hundredth of the width (d), horizontally and vertically alike: the
// background is d inside the frame, the fill 3d. A bar narrower than 100 pixels therefore
// has no margins at all; every screen that uses the bar relies on this. Geometry is worked
// out in the setters, so drawing is three rectangles. Colours are packed 0xRRGGBBAA.
class ProgressBar : public Widget {
public:
    // Branding colours: frame, background, fill, and the fill at 100 %.
    ProgressBar(unsigned int width, unsigned int height);
    ProgressBar(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                unsigned int frameColour, unsigned int backgroundColour, unsigned int barColour,
                unsigned int fullColour);

    // Above 100 counts as 100.
    void setProgress(unsigned int percent);

    void setX(unsigned int x) override;
    void setY(unsigned int y) override;
    // Keeps the filled fraction. The vertical insets follow at the next setY or setHeight.
    void setWidth(unsigned int width) override;
    void setHeight(unsigned int height) override;

    void draw(_XuiWindow* canvas) override;

private:
    unsigned int inset() const { return getWidth() / 100; }

    utl::relaxed<unsigned int> innerX_;
    utl::relaxed<unsigned int> innerY_;
    utl::relaxed<unsigned int> innerWidth_;
    utl::relaxed<unsigned int> innerHeight_;
    utl::relaxed<unsigned int> barX_;
    utl::relaxed<unsigned int> barY_;
    utl::relaxed<unsigned int> barWidth_ = 0;
    utl::relaxed<unsigned int> barHeight_;
    utl::relaxed<unsigned int> frameColour_;
    utl::relaxed<unsigned int> backgroundColour_;
    utl::relaxed<unsigned int> barColour_;
    utl::relaxed<unsigned int> fullColour_;
    utl::relaxed<unsigned int> fullWidth_;
};

} // namespace ui
