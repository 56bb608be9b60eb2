#include "Session.hpp"

namespace demo {

SessionResult runSession(const std::vector<ui::session::Command>& script, const SessionOptions& options) {
    AppOptions appOptions = options.app;
    appOptions.indicator.idlePeriodMs = 1000;
    appOptions.indicator.idleFlashMs = 600000;
    ui::session::SessionOptions sessionOptions;
    sessionOptions.pseudoLocalization = options.pseudoLocalization;
    sessionOptions.language = options.language;
    ui::session::Session session(sessionOptions);
    // The moments of a sale come on the application's thread, while the script's line waits
    // for it: one at a time.
    appOptions.moment = [&session](const std::string& what) { session.moment(what); };
    SessionResult result;
    {
        PaymentApp app(appOptions);
        result.steps = session.play(script, app);
    }
    if (!options.out.empty())
        result.files = session.write(options.out);
    return result;
}

} // namespace demo
