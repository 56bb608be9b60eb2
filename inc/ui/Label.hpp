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

} // namespace ui
