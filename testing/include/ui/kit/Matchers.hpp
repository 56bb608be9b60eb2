// GoogleTest matchers for what a Terminal read: texts on the screen and tones in the timeline.
// Failures say what was there instead.
//
//   EXPECT_THAT(terminal.texts(), ui::kit::ShowsText("Approved"));
//   EXPECT_THAT(terminal.timeline(), ui::kit::SoundedTone(1500, 500));
//   EXPECT_THAT(terminal.timeline(), ui::kit::SoundedTones({{1500, 500}}));
//   EXPECT_THAT(terminal.timeline(), ui::kit::HappenedInOrder({"leds 1100", "leds 1110", "leds 1111"}));
//   EXPECT_EQ(terminal.leds(), "1111");
//   EXPECT_THAT(terminal.fit(), ui::kit::FitsOnScreen());
#pragma once

#include "ui/kit/Terminal.hpp"

#include <gmock/gmock.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace ui::kit {

namespace detail {

// What a frame made of a text laid out for display, if it was; Terminal::texts() knows it.
inline std::string howShown(const std::vector<session::DrawnText>&, const std::string&) {
    return "";
}
inline std::string howShown(const Texts& texts, const std::string& text) {
    return texts.howShown ? texts.howShown(text) : "";
}

} // namespace detail

// Some text drawn is exactly text. When none is, the failure lists what is, and for a text that
// was laid out for display, how the frame shows it: in lines, cut, or not at all.
MATCHER_P(ShowsText, text,
          std::string(negation ? "does not show " : "shows ") + "\"" + std::string(text) + "\"") {
    std::string seen;
    for (const session::DrawnText& drawn : arg) {
        if (drawn.text == text)
            return true;
        seen += (seen.empty() ? "" : ", ") + ("\"" + drawn.text + "\"");
    }
    *result_listener << "the screen shows " << (seen.empty() ? std::string("no text") : seen);
    if (const std::string how = detail::howShown(arg, text); !how.empty())
        *result_listener << "; \"" << std::string(text) << "\" was laid out, and " << how;
    return false;
}

// The timeline holds a tone of this frequency and length.
MATCHER_P2(SoundedTone, hertz, milliseconds,
           std::string(negation ? "sounded no " : "sounded a ") + std::to_string(hertz) + " Hz tone of " +
               std::to_string(milliseconds) + " ms") {
    const std::string wanted =
        "tone " + std::to_string(hertz) + " Hz " + std::to_string(milliseconds) + " ms";
    std::string seen;
    for (const Event& event : arg) {
        if (event.what == wanted)
            return true;
        if (event.what.rfind("tone ", 0) == 0)
            seen += (seen.empty() ? "" : ", ") + event.what;
    }
    *result_listener << "the tones were " << (seen.empty() ? std::string("none") : seen);
    return false;
}

namespace detail {

inline std::string joined(const std::vector<std::string>& items, const std::string& none) {
    std::string out;
    for (const std::string& item : items)
        out += (out.empty() ? "" : ", ") + item;
    return out.empty() ? none : out;
}

MATCHER_P(TonesAre, tones, "sounded exactly " + joined(tones, "no tone")) {
    std::vector<std::string> seen;
    for (const Event& event : arg)
        if (event.what.rfind("tone ", 0) == 0)
            seen.push_back(event.what);
    *result_listener << "the tones were " << joined(seen, "none");
    return seen == tones;
}

MATCHER(Fits, "fits on the screen") {
    std::string lost;
    for (const session::Overflow& overflow : arg)
        lost += "\n  " + describe(overflow);
    if (lost.empty())
        return true;
    *result_listener << "these do not fit:" << lost;
    return false;
}

MATCHER_P(EventsInOrder, events, "holds, in this order, " + joined(events, "nothing")) {
    size_t next = 0;
    for (const Event& event : arg)
        if (next < events.size() && event.what == events[next])
            ++next;
    if (next == events.size())
        return true;
    std::vector<std::string> seen;
    for (const Event& event : arg)
        seen.push_back(event.what);
    *result_listener << "\"" << events[next] << "\" is missing or out of order; the timeline was "
                     << joined(seen, "empty");
    return false;
}

} // namespace detail

// One tone, as the timeline writes it.
struct Tone {
    int hertz;
    int milliseconds;
};

// The timeline's tones are exactly these, in this order.
inline auto SoundedTones(std::initializer_list<Tone> tones) {
    std::vector<std::string> wanted;
    for (const Tone& tone : tones)
        wanted.push_back("tone " + std::to_string(tone.hertz) + " Hz " + std::to_string(tone.milliseconds) +
                         " ms");
    return detail::TonesAre(wanted);
}

// What Terminal::fit found of a screen: nothing drawn past an edge, nothing cut. The failure
// names each text, where it is and what of it was lost.
inline auto FitsOnScreen() {
    return detail::Fits();
}

// The timeline holds these events ("leds 1100", "tone 1500 Hz 500 ms") in this order, others
// possibly between them.
inline auto HappenedInOrder(std::vector<std::string> events) {
    return detail::EventsInOrder(std::move(events));
}

} // namespace ui::kit
