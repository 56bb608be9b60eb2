// Text that does not fit, found in a frame as the panel showed it. Two losses leave a mark in
// what was drawn: a text drawn past its canvas's edge (a centred or right-aligned line wider
// than its box even wraps around to a huge x, and the panel shows nothing of it), and a text
// given for display of which only the start was drawn (the lines a label's height holds at its
// font size, what fits a wrappable label's height). A text given and not drawn at all leaves
// none: hidden on purpose, or with no line that fits; a Terminal's texts() says, for each text
// laid out and not drawn as one line, how the frame shows it, and ShowsText explains with it.
//
// What was given is learnt from the platform: every string looked up and every text laid out in
// lines passes through it (osal::host::addTextListener). The lines a wrapping widget makes of a
// text are given again one by one; they count as parts of that text, not texts of their own.
#pragma once

#include <xui_host.hpp>

#include <cstdint>
#include <mutex>
#include <ostream>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace ui::session {

// A text a frame drew, where it drew it (canvas coordinates).
struct DrawnText {
    std::string text;
    unsigned x = 0; // as Xui was given it: a coordinate that wrapped around is huge
    unsigned y = 0;
    uint32_t colour = 0; // as Xui was given it, 0xAARRGGBB
    unsigned size = 0;   // pixels
    std::string font;    // as the trace names it, "f1"
};
inline void PrintTo(const DrawnText& text, std::ostream* out) {
    *out << "\"" << text.text << "\" at (" << text.x << ", " << text.y << ")";
}

// The texts that the CanvasDrawText calls among calls drew, unquoted, in order.
std::vector<DrawnText> drawnTexts(const std::vector<xui_host::Call>& calls);

struct Overflow {
    enum Kind { PastEdge, Cut };
    Kind kind = PastEdge;
    std::string text; // as drawn (past an edge), or as given (cut)
    int x = 0;        // where it was drawn (a cut text: its first line), canvas coordinates;
    int y = 0;        // a line whose x wrapped around is negative
    std::string area; // "main area" or "header"
    std::string how;  // "23 px past the right edge", "lost \"to pay\""
};

// "\"Present card\" at (10, 160) in the main area: lost \"to pay\"".
std::string describe(const Overflow& overflow);
inline void PrintTo(const Overflow& overflow, std::ostream* out) {
    *out << describe(overflow);
}

// Watches the texts given for display from the moment it is made until it goes.
class FitCheck {
public:
    FitCheck();
    ~FitCheck();
    FitCheck(const FitCheck&) = delete;
    FitCheck& operator=(const FitCheck&) = delete;

    // The frame's texts drawn past an edge of their canvas (main area and header), and the texts
    // given since this check was made that the frame shows in part.
    std::vector<Overflow> check(const xui_host::Frame& frame);
    // For a text laid out since this check was made that the frame does not draw as one line,
    // how it shows it: "drawn in 2 lines: ...", "cut: lost \"to pay\"", or that nothing of it
    // was drawn; empty for any other text.
    std::string howShown(const xui_host::Frame& frame, const std::string& text);

private:
    // A text given for display, or laid out, that is not a line made of a text given before it.
    struct Given {
        std::string text;
        std::string bare; // without its spaces, which wrapping drops or moves
        bool laidOut = false;
    };
    void given(const std::string& text, bool laidOut, std::thread::id thread);
    std::vector<Given> originals();

    int listener_ = 0;
    std::mutex mutex_;
    std::vector<Given> originals_;
    std::set<std::string> known_;
    // The last texts each thread gave: a line a wrapping widget makes is given right after its text.
    std::vector<std::pair<std::thread::id, std::string>> recent_;
};

} // namespace ui::session
