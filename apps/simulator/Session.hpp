// The demo's session: the headless player and recorder (ui::session::Session) with the demo
// application, its indicator set so that an idle picture shows the flash on every run.
#pragma once

#include "PaymentApp.hpp"

#include <ui/session/Session.hpp>

#include <string>
#include <vector>

namespace demo {

struct SessionResult {
    std::vector<ui::session::Step> steps;
    std::vector<std::string> files; // what was written, in order
};

struct SessionOptions {
    AppOptions app;
    std::string out;               // empty: nothing written
    double pseudoLocalization = 0; // see osal::host::setPseudoLocalization; 0: off
    std::string language;          // "de": res/strings/de.txt; empty: the strings loaded
};

// Runs the script headless to its end, the same on every run (see ui::session::Session): the
// indicator idles one second, then its idle flash stays lit for ten minutes, so that a picture
// taken while it idles shows the flash however long the step took; the moments of a sale are
// steps of their own. Throws ScriptError for a line the application cannot play, and
// std::runtime_error when an output cannot be written.
SessionResult runSession(const std::vector<ui::session::Command>& script, const SessionOptions& options);

} // namespace demo
