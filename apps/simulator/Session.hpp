// Plays a session script against the demo application without a window, and records it (see
// Recording): a step per script line and per moment of a sale, each with its picture.
#pragma once

#include "PaymentApp.hpp"
#include "Recording.hpp"
#include "Script.hpp"

#include <string>
#include <vector>

namespace demo {

struct SessionResult {
    std::vector<Step> steps;
    std::vector<std::string> files; // what was written, in order
};

struct SessionOptions {
    AppOptions app;
    std::string out;               // empty: nothing written
    double pseudoLocalization = 0; // see osal::host::setPseudoLocalization; 0: off
};

// Runs the script headless to its end, the same on every run: the clock is pinned (to
// 2026-11-22 09:30 until a clock line moves it) and so is the animation; the indicator idles
// one second, then its idle flash stays lit for ten minutes, so that a picture taken while it
// idles shows the flash however long the step took. Throws ScriptError for a line the
// application cannot play, and std::runtime_error when an output cannot be written.
SessionResult runSession(const std::vector<Command>& script, const SessionOptions& options);

} // namespace demo
