#include "ui/GraphicsDevice.hpp"
#include "ui/Label.hpp"
#include "ui/Xui.hpp"

#include <osal/strings.hpp>

namespace ui {

namespace {

// Lines of the centring helpers hold at most this many characters.
constexpr unsigned kCentredLineChars = 24;

unsigned lineHeight() {
    return fonts::getFontSize();
}

std::vector<std::shared_ptr<Widget>> layOut(const std::vector<std::string>& lines, int y, bool centred) {
    std::vector<std::shared_ptr<Widget>> labels;
    labels.reserve(lines.size());
    const unsigned width = static_cast<unsigned>(GetMainCanvasWidth());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const unsigned top = static_cast<unsigned>(y) + lineHeight() * static_cast<unsigned>(i);
        auto label = std::make_shared<Label>(0, top, width, lineHeight());
        label->setText(lines[i]);
        if (centred)
            label->setAlignment(utils::Centre);
        labels.push_back(std::move(label));
    }
    return labels;
}

} // namespace

std::vector<std::string> splitOnNewLines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t from = 0;
    while (from < text.size()) {
        std::size_t end = text.find('\n', from);
        if (end == std::string::npos)
            end = text.size();
        lines.push_back(trim(text.substr(from, end - from), " \t\n"));
        from = end + 1;
    }
    return lines;
}

std::vector<std::string> splitLine(const std::string& line, unsigned int maxChars) {
    std::vector<std::string> pieces;
    std::string rest = line;
    while (!rest.empty()) {
        std::string piece;
        if (maxChars > rest.size()) {
            piece = rest;
        } else {
            piece = rest.substr(0, maxChars);
            const auto space = piece.rfind(' ');
            if (space != std::string::npos)
                piece.resize(space);
        }
        rest.erase(0, piece.size());
        pieces.push_back(trim(piece, " \t"));
        rest = trim(rest, " \t");
        if (piece.empty() && maxChars == 0)
            break; // a zero budget cuts nothing and would never end
    }
    return pieces;
}

std::vector<std::string> wordWrap(const std::string& text, unsigned int maxChars) {
    std::vector<std::string> wrapped;
    for (const auto& line : splitOnNewLines(text)) {
        if (line.size() > maxChars) {
            for (auto& piece : splitLine(line, maxChars))
                wrapped.push_back(std::move(piece));
        } else {
            wrapped.push_back(line);
        }
    }
    return wrapped;
}

void wordWrap(std::vector<std::string>& out, const std::string& text) {
    const long long width = GetMainCanvasWidth();
    if (width > static_cast<long long>(fonts::GetTextWidth(text.c_str()))) {
        out.push_back(text);
        return;
    }
    if (text.empty())
        return;
    long long sum = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        sum += fonts::GetTextWidth(std::string(1, text[i]).c_str());
        if (sum > width) {
            out.push_back(text.substr(0, i));
            const std::string rest = trim(text.substr(i), " ");
            // A first character wider than the whole canvas leaves the rest as long as the text:
            // wrapping it again would never end.
            if (rest.size() < text.size())
                wordWrap(out, rest);
        }
    }
}

std::vector<std::shared_ptr<Widget>> automaticFormatting(const std::vector<std::string>& lines, int y) {
    return layOut(lines, y, false);
}

std::vector<std::shared_ptr<Widget>> automaticFormatting(const std::string& text, int y) {
    std::vector<std::string> lines;
    wordWrap(lines, text);
    return automaticFormatting(lines, y);
}

std::vector<std::shared_ptr<Widget>> centerOfScreenFormatting(const std::vector<std::string>& lines, int y) {
    return layOut(lines, y, true);
}

std::vector<std::shared_ptr<Widget>> centerFormatting(const std::string& text, int y) {
    return centerOfScreenFormatting(wordWrap(text, kCentredLineChars), y);
}

std::vector<std::shared_ptr<Widget>> centerOfScreenFormatting(const std::vector<std::string>& lines) {
    const int height = static_cast<int>(lineHeight() * lines.size());
    return centerOfScreenFormatting(lines, GetMainCanvasHeight() / 2 - height / 2);
}

std::vector<std::shared_ptr<Widget>> centerOfScreenFormatting(const std::string& text) {
    return centerOfScreenFormatting(wordWrap(text, kCentredLineChars));
}

unsigned int GetYFromLastTextElement(const std::vector<std::shared_ptr<Widget>>& elements) {
    if (elements.empty() || !elements.back())
        return 0;
    return elements.back()->getY();
}

} // namespace ui
