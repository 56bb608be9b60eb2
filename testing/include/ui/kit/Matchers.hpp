// GoogleTest matchers for what a Terminal read: texts on the screen and tones in the timeline.
// Failures say what was there instead.
//
//   EXPECT_THAT(terminal.texts(), ui::kit::ShowsText("Approved"));
//   EXPECT_THAT(terminal.timeline(), ui::kit::SoundedTone(1500, 500));
//   EXPECT_EQ(terminal.leds(), "1111");
#pragma once

#include "ui/kit/Terminal.hpp"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace ui::kit {

// Some text drawn is exactly text.
MATCHER_P(ShowsText, text,
          std::string(negation ? "does not show " : "shows ") + "\"" + std::string(text) + "\"") {
    std::string seen;
    for (const DrawnText& drawn : arg) {
        if (drawn.text == text)
            return true;
        seen += (seen.empty() ? "" : ", ") + ("\"" + drawn.text + "\"");
    }
    *result_listener << "the screen shows " << (seen.empty() ? std::string("no text") : seen);
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

} // namespace ui::kit
