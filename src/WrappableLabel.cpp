#include "ui/Label.hpp"

#include "TextFit.hpp"
#include "ui/Xui.hpp"

#include <osal/localization.hpp>
#include <osal/strings.hpp>

namespace ui {

WrappableLabel::WrappableLabel(unsigned int width, unsigned int height)
    : WrappableLabel(0, 0, width, height, utils::Centre, utils::Centre) {}

WrappableLabel::WrappableLabel(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                               utils::Origin horizontal, utils::Origin vertical)
    : Widget(x, y, width, height), horizontal_(horizontal), vertical_(vertical),
      lineHeight_(fonts::getFontSize()) {}

WrappableLabel::~WrappableLabel() = default;

void WrappableLabel::makeLine(const std::string& line, unsigned int y) {
    Label label(getX(), y, getWidth(), lineHeight_);
    label.setAlignment(horizontal_);
    label.setText(line);
    labels_.push_back(label);
}

void WrappableLabel::wrapText(StringId id) {
    wrapText(Localization::getLocalizedString(id));
}

void WrappableLabel::wrapText(const std::string& text) {
    detail::WordCursor words(splitOnDelimeters(text, " "));
    const unsigned width = getWidth();
    const unsigned height = getHeight();
    unsigned y = getY();
    // Counts the line being built, so it runs one line ahead when a line ends exactly full.
    unsigned used = lineHeight_;

    // No words, no lines; the block is still placed below.
    if (!words.empty()) {
        const auto measure = [](const char* line) { return fonts::GetTextWidth(line); };
        detail::LineFitter<decltype(measure)> fitter(width, measure);
        const auto addLine = [&](const std::string& line) {
            fitter.lineMade(line.size());
            makeLine(line, y);
        };
        while (used <= height) {
            detail::Fit fit = detail::Fit::Narrower;
            while (!words.done()) {
                fit = fitter.compare(words.current());
                if (fit != detail::Fit::Narrower)
                    break;
                if (words.atLastWord()) {
                    addLine(trim(std::string(words.current()), " "));
                    words.advance();
                } else {
                    words.appendNextWord();
                }
            }
            if (words.done())
                break;
            const std::string_view current = words.current();
            std::string line;
            if (fit == detail::Fit::Exact) {
                line = std::string(current);
                words.advance();
            } else if (const auto space = words.lastSpace(); space != std::string_view::npos) {
                line = trim(std::string(current.substr(0, space)), " ");
                words.restartAtWord();
            } else {
                // No minimum here: when not even one character fits the line stays empty and
                // the word is tried again on the next, until the height runs out.
                const std::size_t cut = fitter.longestFit();
                line = trim(std::string(current.substr(0, cut)), " ");
                words.cutWord(cut);
            }
            addLine(line);
            y += lineHeight_;
            used += lineHeight_;
        }
    }

    // Unsigned on purpose: a block taller than the box wraps around, as it always has.
    unsigned firstY;
    switch (vertical_) {
    case utils::Top:
        return;
    case utils::Bottom:
        firstY = getY() + height - used;
        break;
    case utils::Centre:
        firstY = getY() + (height - used) / 2;
        break;
    default:
        firstY = getY();
    }
    for (auto& label : labels_) {
        label.setY(firstY);
        firstY += lineHeight_;
    }
}

void WrappableLabel::setVerticalAlignment(utils::Origin vertical) {
    vertical_ = vertical;
}

void WrappableLabel::setX(unsigned int x) {
    const unsigned delta = x - getX();
    for (auto& label : labels_)
        label.setX(label.getX() + delta);
    Widget::setX(x);
}

void WrappableLabel::setY(unsigned int y) {
    const unsigned delta = y - getY();
    for (auto& label : labels_)
        label.setY(label.getY() + delta);
    Widget::setY(y);
}

void WrappableLabel::setWidth(unsigned int width) {
    Widget::setWidth(width);
    labels_.clear();
    wrapText(text_);
}

void WrappableLabel::setHeight(unsigned int height) {
    Widget::setHeight(height);
    labels_.clear();
    wrapText(text_);
}

void WrappableLabel::draw(_XuiWindow* canvas) {
    if (!isVisible())
        return;
    for (auto& label : labels_)
        label.draw(canvas);
}

} // namespace ui
