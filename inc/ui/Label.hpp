// Text widgets: the word-wrapping label and its line breaker, the text layout helpers that
// turn a message into a column of labels, localized labels, titles and decorators.
#pragma once

#include "ui/Widget.hpp"

#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

// Greedy line breaking on spaces, measured at the default font size. A line may end exactly
// at the width; a word wider than the whole width is cut character by character (bytes), and
// every line takes at least one character. A "\n" is an ordinary character here.
//
// Where a long word is cut is found without measuring every prefix of it, relying on one
// assumption about the terminal's font: appending a whole character to a text never makes it
// measure narrower (a byte outside a complete UTF-8 sequence counts as a character). A prefix
// that ends inside a multi-byte character is measured exactly. So the cost of a line grows
// with the line, not with the rest of the text; WrappableLabel cuts words the same way.
std::vector<std::string> WrapText(const std::string& text, unsigned int width);

// Identifies a localized string (see Localization::getLocalizedString).
using StringId = int;

// The library's error for a missing resource, for applications to raise and catch; the
// library itself never throws it.
class ResourceException : public std::runtime_error {
public:
    explicit ResourceException(const std::string& message) : std::runtime_error(message) {}
};

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
    // Set by the application while the rendering thread draws (a decline turning the text red).
    utl::relaxed<unsigned int> colour_;
    std::vector<std::string> lines_;
    utl::relaxed<utils::Origin> alignment_ = utils::Left;
    utl::relaxed<bool> verticalAlignment_ = true;
    utl::relaxed<unsigned int> fontSize_;
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

// A label whose text is normally a localized string. An unknown string identifier is logged,
// never thrown: the previous text stays on screen. The proxy's own box and the inner label's
// are kept equal by the setters; the inner label's visibility decides whether it draws.
class ProxyLabel : public Widget {
public:
    ProxyLabel();
    ProxyLabel(unsigned int x, unsigned int y, unsigned int width, unsigned int height);
    // Both take the box from the source's getters (so the copy is visible) and copy the inner
    // label; the move does not steal.
    ProxyLabel(const ProxyLabel& other);
    ProxyLabel(ProxyLabel&& other);
    ~ProxyLabel() override;

    // Both copy the inner label only: this proxy's own box stays as it was.
    ProxyLabel& operator=(const ProxyLabel& other);
    ProxyLabel& operator=(ProxyLabel&& other);

    void setVisible(bool visible) override;
    void setX(unsigned int x) override;
    void setY(unsigned int y) override;
    void setWidth(unsigned int width) override;
    void setHeight(unsigned int height) override;

    // Looks the text up, wraps it and takes the inner label's new size as its own.
    void setText(int id);
    // The inner label's setText; this proxy's own size is not updated.
    void setText(const std::string& text);
    std::string getText() const;
    void clearText();
    // On wrapped text these run the lines together (getText drops the wrapping spaces):
    // intended, as on the terminal.
    void setPrefix(const std::string& prefix);
    void setSuffix(const std::string& suffix);
    void setColor(unsigned int color);
    void setFontSize(unsigned int size);
    void setAlignment(const utils::Origin& alignment);
    void verticalAlignment(bool centred);

    void draw(_XuiWindow* canvas) override;

private:
    Label label_;
};

// Owns one widget (or none) and draws it. Moving or resizing the decorator leaves the widget
// where it is; the decorator's own visibility is not consulted.
class Decorator : public Widget {
public:
    explicit Decorator(std::unique_ptr<Widget> inner);
    Decorator(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
              std::unique_ptr<Widget> inner);
    ~Decorator() override;

    void draw(_XuiWindow* canvas) override;

private:
    std::unique_ptr<Widget> inner_;
};

// A one-line band in the accent colour (branding colour 10) with a centred localized caption
// (branding colour 2), drawn above the widget it owns. The band always runs to the screen's
// full width from the caption's x, whatever the title's own width.
class Title : public Decorator {
public:
    // At (0, 0), the screen's width and one line high.
    Title(StringId text, std::unique_ptr<Widget> inner);
    Title(unsigned int x, unsigned int y, unsigned int width, unsigned int height, StringId text,
          std::unique_ptr<Widget> inner);
    ~Title() override;

    void setText(StringId text);
    void setString(const std::string& text);

    void draw(_XuiWindow* canvas) override;

private:
    ProxyLabel caption_;
};

// Text layout ---------------------------------------------------------------------------------
// Stateless helpers that break a message into lines and lay them out as a column of labels,
// one line every 20 pixels, across the main canvas (GetMainCanvasWidth/Height).

// Lines on "\n", each trimmed of " \t\n"; two newlines in a row give an empty line, a final
// newline none.
std::vector<std::string> splitOnNewLines(const std::string& text);
// Pieces of at most maxChars bytes, broken at the last space among the first maxChars (or hard
// cut without one). A line of exactly maxChars bytes is still broken if it holds a space.
std::vector<std::string> splitLine(const std::string& line, unsigned int maxChars);
// splitOnNewLines, then splitLine on each line longer than maxChars.
std::vector<std::string> wordWrap(const std::string& text, unsigned int maxChars);
// Wraps to the canvas width, measuring character by character, and appends to out. Past the
// first break its output also holds overlapping longer prefixes, each with its own wrapped
// rest: intended, as the terminal has always laid out automaticFormatting(text, y); the work
// grows steeply with the number of lines, so keep such texts to a few lines.
void wordWrap(std::vector<std::string>& out, const std::string& text);

// Left-aligned labels from y down, one per line. A line wider than the canvas becomes a
// taller label that overlaps the next one, which still sits 20 pixels lower.
std::vector<std::shared_ptr<Widget>> automaticFormatting(const std::vector<std::string>& lines, int y);
std::vector<std::shared_ptr<Widget>> automaticFormatting(const std::string& text, int y);
// As automaticFormatting, each label centred.
std::vector<std::shared_ptr<Widget>> centerOfScreenFormatting(const std::vector<std::string>& lines, int y);
// Wrapped at 24 characters, centred from y down.
std::vector<std::shared_ptr<Widget>> centerFormatting(const std::string& text, int y);
// Centred both ways on the main canvas.
std::vector<std::shared_ptr<Widget>> centerOfScreenFormatting(const std::vector<std::string>& lines);
std::vector<std::shared_ptr<Widget>> centerOfScreenFormatting(const std::string& text);

// The y of the last element (the top of the last line, not its bottom); 0 when the list is
// empty or ends in null.
unsigned int GetYFromLastTextElement(const std::vector<std::shared_ptr<Widget>>& elements);

} // namespace ui
