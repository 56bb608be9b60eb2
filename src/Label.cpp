#include "ui/Label.hpp"

#include "TextFit.hpp"
#include "ui/Xui.hpp"

#include <osal/resource.hpp>
#include <osal/strings.hpp>

#include <algorithm>
#include <utility>

std::vector<std::string> WrapText(const std::string& text, unsigned int width) {
    return ui::detail::wrapText(text, width, [](const char* line) { return ui::fonts::GetTextWidth(line); });
}

namespace ui {

namespace {
unsigned defaultColour() {
    return resource::ResourceMapping::getResourceColor(resource::BRAND_TEXT);
}
} // namespace

Label::Label() : Label(0, 0, 0, 0) {}

Label::Label(unsigned int x, unsigned int y, unsigned int width, unsigned int height)
    : Widget(x, y, width, height), colour_(defaultColour()), fontSize_(fonts::getFontSize()) {}

Label::Label(const Label& other)
    : Widget(other.getX(), other.getY(), other.getWidth(), other.getHeight()), colour_(other.colour_),
      alignment_(other.alignment_), verticalAlignment_(other.verticalAlignment_), fontSize_(other.fontSize_) {
    std::lock_guard<std::mutex> lock(other.mutex_);
    lines_ = other.lines_;
}

Label::Label(Label&& other)
    : Widget(other.getX(), other.getY(), other.getWidth(), other.getHeight()), colour_(other.colour_),
      alignment_(other.alignment_), verticalAlignment_(other.verticalAlignment_), fontSize_(other.fontSize_) {
    std::lock_guard<std::mutex> lock(other.mutex_);
    lines_ = std::move(other.lines_);
    other.lines_.clear();
}

Label::~Label() = default;

Label& Label::operator=(const Label& other) {
    if (this == &other)
        return *this;
    Widget::operator=(other);
    colour_ = other.colour_;
    {
        std::scoped_lock lock(mutex_, other.mutex_);
        lines_ = other.lines_;
    }
    fontSize_ = other.fontSize_;
    alignment_ = other.alignment_;
    verticalAlignment_ = other.verticalAlignment_;
    return *this;
}

Label& Label::operator=(Label&& other) {
    if (this == &other)
        return *this;
    Widget::operator=(other);
    std::swap(colour_, other.colour_);
    {
        std::scoped_lock lock(mutex_, other.mutex_);
        std::swap(lines_, other.lines_);
    }
    std::swap(alignment_, other.alignment_);
    std::swap(verticalAlignment_, other.verticalAlignment_);
    std::swap(fontSize_, other.fontSize_);
    return *this;
}

void Label::setX(unsigned int x) {
    Widget::setX(x);
}
void Label::setY(unsigned int y) {
    Widget::setY(y);
}
void Label::setWidth(unsigned int width) {
    Widget::setWidth(width);
}
void Label::setHeight(unsigned int height) {
    Widget::setHeight(height);
}

void Label::setText(const std::string& text) {
    std::lock_guard<std::mutex> lock(mutex_);
    lines_ = WrapText(text, getWidth());
    // Deliberately the default size, not fontSize_: screens lay out on a 20-pixel grid.
    setHeight(static_cast<unsigned>(lines_.size()) * fonts::getFontSize());
}

std::string Label::getText() const {
    std::lock_guard<std::mutex> lock(mutex_);
    std::string text;
    for (const auto& line : lines_)
        text += line;
    return text;
}

void Label::setColor(unsigned int color) {
    colour_ = color;
}
void Label::setFontSize(unsigned int size) {
    fontSize_ = size;
}
void Label::setAlignment(const utils::Origin& alignment) {
    alignment_ = alignment;
}
void Label::verticalAlignment(bool centred) {
    verticalAlignment_ = centred;
}

void Label::draw(_XuiWindow* canvas) {
    if (!isVisible())
        return;
    const unsigned fs = fontSize_;
    const unsigned h = getHeight();
    std::vector<std::string> lines;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        lines = lines_;
    }
    const std::size_t fitting = fs == 0 ? lines.size() : h / fs;
    const unsigned n = static_cast<unsigned>(std::min<std::size_t>(lines.size(), fitting));
    if (n == 0)
        return;
    const unsigned offset = (h - n * fs) / 2;
    const XuiColor colour = fonts::intToXuiColor(colour_);
    for (unsigned i = 0; i < n; ++i) {
        const std::string& line = lines[i];
        unsigned y = getY() + i * fs;
        if (verticalAlignment_)
            y += offset;
        unsigned x = getX();
        // Unsigned on purpose: a line wider than a centred or right-aligned box wraps around,
        // exactly as on the terminal.
        if (alignment_ == utils::Centre)
            x = getX() + getWidth() / 2 - fonts::GetTextWidth(line.c_str(), fs) / 2;
        else if (alignment_ == utils::Right)
            x = getX() + getWidth() - 2 - fonts::GetTextWidth(line.c_str(), fs);
        std::lock_guard<std::mutex> lock(mutex_);
        Xui::CanvasDrawText(canvas, x, y, fs, fonts::getFont(), XUI_TEXT_NORMAL, colour, line.c_str());
    }
}

} // namespace ui
