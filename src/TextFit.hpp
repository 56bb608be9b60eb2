// Where a line of text ends, found with few measurements.
//
// The library measures text only through Xui and cannot know the terminal's font. It relies on
// one assumption about it: appending a whole character to a text never makes the text measure
// narrower (a byte that is not part of a complete UTF-8 sequence counts as a character of its
// own). Under it, the widths of the prefixes that end between two characters never decrease
// with their length, so the longest prefix that fits a line is found by galloping from the
// previous line's length and bisecting, not by trying every length from the longest down, and
// it is the same prefix on every font. Prefixes that end inside a multi-byte character are
// measured one by one: a cut sequence may be drawn wider or narrower than the whole character.
//
// A short text is measured whole, as before; a long one only by prefixes near where its line
// ends, so that a line costs what the line holds, not what remains of the text.
#pragma once

#include <osal/strings.hpp>

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ui::detail {

// Bytes of the character at text[i]: a lead byte with the continuation bytes it announces, as
// many as follow it; any other byte alone.
inline std::size_t characterLength(std::string_view text, std::size_t i) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const std::size_t continuations = lead >= 0xF8   ? 0
                                      : lead >= 0xF0 ? 3
                                      : lead >= 0xE0 ? 2
                                      : lead >= 0xC0 ? 1
                                                     : 0;
    std::size_t n = 1;
    while (n <= continuations && i + n < text.size() &&
           (static_cast<unsigned char>(text[i + n]) & 0xC0) == 0x80)
        ++n;
    return n;
}

enum class Fit { Narrower, Exact, Wider };

// Measure is called with a NUL-terminated text and returns its width in pixels.
template <class Measure> class LineFitter {
public:
    LineFitter(unsigned int width, Measure measure) : width_(width), measure_(std::move(measure)) {}

    // How the width of text compares with the line's. text must be NUL-terminated right after
    // its end (a view to the end of a std::string).
    Fit compare(std::string_view text) {
        text_ = text;
        fits_ = 0;
        over_ = kUnknown;
        if (text.size() <= kShort + 2 * lineBytes_) {
            const unsigned measured = measure_(text.data());
            return measured < width_ ? Fit::Narrower : measured == width_ ? Fit::Exact : Fit::Wider;
        }
        ends_.assign(1, 0);
        // Gallop up from the previous line's length until a prefix is too wide or all fits.
        std::size_t count = lineCharacters_ > 0 ? lineCharacters_ : 1;
        for (std::size_t step = 1;; step *= 2) {
            std::size_t end = endOf(count);
            if (end == kUnknown) {
                count = ends_.size() - 1;
                end = text.size();
            }
            const unsigned measured = measurePrefix(end);
            if (measured > width_) {
                over_ = count;
                return Fit::Wider;
            }
            fits_ = count;
            if (end == text.size())
                return measured < width_ ? Fit::Narrower : Fit::Exact;
            count += step;
        }
    }

    // Of the text last compared and found Wider: the length in bytes of its longest prefix that
    // measures no more than the width, or 0 when not even one byte does.
    std::size_t longestFit() {
        if (over_ == kUnknown) { // measured whole: every character is a candidate
            ends_.assign(1, 0);
            endOf(text_.size());
            over_ = ends_.size() - 1;
        }
        std::size_t lo = fits_, hi = over_; // lo characters fit, hi do not
        if (hi == 0)
            return 0;
        if (hi - lo > 1) {
            // Lines of one text tend to hold alike: start from the last one and gallop away.
            const std::size_t guess = lineCharacters_ <= lo   ? lo + 1
                                      : lineCharacters_ >= hi ? hi - 1
                                                              : lineCharacters_;
            if (fits(guess)) {
                lo = guess;
                for (std::size_t step = 1; lo + step < hi; step *= 2) {
                    if (!fits(lo + step)) {
                        hi = lo + step;
                        break;
                    }
                    lo += step;
                }
            } else {
                hi = guess;
                for (std::size_t step = 1; hi - lo > step; step *= 2) {
                    if (fits(hi - step)) {
                        lo = hi - step;
                        break;
                    }
                    hi -= step;
                }
            }
        }
        while (hi - lo > 1) {
            const std::size_t mid = lo + (hi - lo) / 2;
            (fits(mid) ? lo : hi) = mid;
        }
        lineCharacters_ = lo;
        // The character that did not fit may still fit in part.
        for (std::size_t bytes = ends_[hi] - 1; bytes > ends_[lo]; --bytes)
            if (measurePrefix(bytes) <= width_)
                return bytes;
        return ends_[lo];
    }

    // The length of the line just made, the guess for how much the next will hold.
    void lineMade(std::size_t bytes) { lineBytes_ = bytes; }

private:
    static constexpr std::size_t kUnknown = std::numeric_limits<std::size_t>::max();
    static constexpr std::size_t kShort = 64; // measured whole, whatever the line before

    // Bytes in the first count characters, or kUnknown when the text has fewer.
    std::size_t endOf(std::size_t count) {
        while (ends_.size() <= count && ends_.back() < text_.size())
            ends_.push_back(ends_.back() + characterLength(text_, ends_.back()));
        return count < ends_.size() ? ends_[count] : kUnknown;
    }

    unsigned measurePrefix(std::size_t bytes) {
        if (bytes == text_.size())
            return measure_(text_.data());
        prefix_.assign(text_.data(), bytes);
        return measure_(prefix_.c_str());
    }

    bool fits(std::size_t count) { return measurePrefix(endOf(count)) <= width_; }

    const unsigned int width_;
    Measure measure_;
    std::string_view text_;
    std::vector<std::size_t> ends_; // ends_[i]: bytes in the first i characters, scanned lazily
    std::size_t fits_ = 0;          // that many characters are known to fit
    std::size_t over_ = kUnknown;   // that many are known not to
    std::size_t lineBytes_ = 0;
    std::size_t lineCharacters_ = 0;
    std::string prefix_;
};

// The rest of the text still to be laid out: the word at the cursor from its first byte not yet
// on a line, or several words joined by spaces while a line is being filled. Cutting a long
// word moves an offset instead of copying what remains of it.
class WordCursor {
public:
    explicit WordCursor(std::vector<std::string> words) : words_(std::move(words)) {}

    bool empty() const { return words_.empty(); }
    bool done() const { return cursor_ >= words_.size(); }
    bool atLastWord() const { return cursor_ + 1 == words_.size(); }

    // NUL-terminated right after its end, as LineFitter wants it.
    std::string_view current() const {
        return joined_ ? std::string_view(line_) : std::string_view(words_[cursor_]).substr(offset_);
    }
    // Where the last space of the current text is. A word holds no spaces (the text was split
    // on them), so only a text joined from several words has one.
    std::size_t lastSpace() const { return joined_ ? line_.rfind(' ') : std::string_view::npos; }
    // Adds a space and the next word to the current text; the cursor moves to that word.
    void appendNextWord() {
        if (!joined_) {
            line_.assign(current());
            joined_ = true;
        }
        line_ += ' ';
        line_ += words_[++cursor_];
        offset_ = 0;
    }
    // The current text becomes the word at the cursor (as far as it was not cut).
    void restartAtWord() { joined_ = false; }
    // Steps past the word at the cursor; the current text becomes the next word.
    void advance() {
        ++cursor_;
        offset_ = 0;
        joined_ = false;
    }
    // The first bytes of the word at the cursor went onto a line. A word holds no spaces, so
    // trimming what remains of it of spaces would change nothing.
    void cutWord(std::size_t bytes) { offset_ += bytes; }

private:
    std::vector<std::string> words_;
    std::size_t cursor_ = 0;
    std::size_t offset_ = 0;
    bool joined_ = false;
    std::string line_;
};

// Greedy breaking on spaces (see WrapText) with the given measure.
template <class Measure>
std::vector<std::string> wrapText(const std::string& text, unsigned int width, Measure measure) {
    WordCursor words(splitOnDelimeters(text, " "));
    std::vector<std::string> lines;
    LineFitter<Measure> fitter(width, std::move(measure));
    const auto addLine = [&](std::string line) {
        fitter.lineMade(line.size());
        lines.push_back(std::move(line));
    };
    while (!words.done()) {
        const std::string_view current = words.current();
        const Fit fit = fitter.compare(current);
        if (fit == Fit::Narrower) {
            if (words.atLastWord()) {
                addLine(trim(std::string(current), " "));
                break;
            }
            words.appendNextWord();
        } else if (fit == Fit::Exact) {
            addLine(std::string(current)); // full to the pixel; kept untrimmed
            words.advance();
        } else if (const auto space = words.lastSpace(); space != std::string_view::npos) {
            addLine(trim(std::string(current.substr(0, space)), " "));
            words.restartAtWord(); // the word that overflowed starts the next line
        } else {
            // One word too wide for the line: its longest prefix that fits, at least one
            // character, and the rest on the next line.
            std::size_t cut = fitter.longestFit();
            if (cut == 0)
                cut = 1;
            addLine(trim(std::string(current.substr(0, cut)), " "));
            words.cutWord(cut);
        }
    }
    return lines;
}

} // namespace ui::detail
