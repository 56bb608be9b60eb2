// Text widgets: the word-wrapping label and its line breaker.
#pragma once

#include "ui/Widget.hpp"

#include <mutex>
#include <string>
#include <vector>

// Greedy line breaking on spaces, measured at the default font size. A line may end exactly
// at the width; a word wider than the whole width is cut character by character (bytes), and
// every line takes at least one character. A "\n" is an ordinary character here.
std::vector<std::string> WrapText(const std::string& text, unsigned int width);

// Identifies a localized string (see Localization::getLocalizedString).
using StringId = int;

namespace ui {

// A multi-line text widget. setText wraps at the label's width at that moment (a later
// setWidth does not re-wrap) and sets the height to lines x 20. draw paints the lines that fit
// the height, aligned left, right (2 pixels in from the edge) or centred, optionally centred
// vertically. setText and draw may run on different threads: the line list is locked.
class Label : public Widget {
public:
    Label();
    Label(unsigned int x, unsigned int y, unsigned int width, unsigned int height);
    // Copies take the box from the source's getters, so the copy is visible.
    Label(const Label& other);
    Label(Label&& other);
    ~Label() override;

    // Assignments copy the visibility too, unlike the copy constructor.
    Label& operator=(const Label& other);
    Label& operator=(Label&& other);

    void setX(unsigned int x) override;
    void setY(unsigned int y) override;
    void setWidth(unsigned int width) override;
    void setHeight(unsigned int height) override;

    void setText(const std::string& text);
    // The lines run together: the spaces at which the text was wrapped are not restored.
    std::string getText() const;

    // Packed 0xRRGGBBAA; the alpha byte is ignored when drawing.
    void setColor(unsigned int color);
    // Pixel size used to draw and to step between lines. The height set by setText always
    // assumes 20, whatever the size.
    void setFontSize(unsigned int size);
    void setAlignment(const utils::Origin& alignment);
    void verticalAlignment(bool centred);

    void draw(_XuiWindow* canvas) override;

private:
    mutable std::mutex mutex_;
    unsigned int colour_;
    std::vector<std::string> lines_;
    utils::Origin alignment_ = utils::Left;
    bool verticalAlignment_ = true;
    unsigned int fontSize_;
};

// A block of text with one single-line label per line, so that lines can be placed on their
// own. wrapText breaks greedily within the box width and within the height budget (text past
// it is dropped; a box lower than a line gets nothing), then places the block at the top,
// centre or bottom of the box. The text is not kept: after setWidth or setHeight the block is
// empty until wrapText is called again. A second wrapText adds its lines to the first's.
class WrappableLabel : public Widget {
public:
    // Centred both ways.
    WrappableLabel(unsigned int width, unsigned int height);
    WrappableLabel(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                   utils::Origin horizontal, utils::Origin vertical);
    ~WrappableLabel() override;

    void wrapText(const std::string& text);
    // Throws LocalizationException for an unknown identifier.
    void wrapText(StringId id);
    // Takes effect at the next wrapText.
    void setVerticalAlignment(utils::Origin vertical);

    // Move every line by the same amount.
    void setX(unsigned int x) override;
    void setY(unsigned int y) override;
    // Drop the lines (see above).
    void setWidth(unsigned int width) override;
    void setHeight(unsigned int height) override;

    void draw(_XuiWindow* canvas) override;

private:
    void makeLine(const std::string& line, unsigned int y);

    utils::Origin horizontal_;
    utils::Origin vertical_;
    std::string text_;
    unsigned int lineHeight_;
    std::vector<Label> labels_;
};

} // namespace ui
