#include "Session.hpp"

namespace demo {

SessionResult runSession(const std::vector<ui::kit::Command>& script, const SessionOptions& options) {
    AppOptions appOptions = options.app;
    appOptions.indicator.idlePeriodMs = 1000;
    appOptions.indicator.idleFlashMs = 600000;
    ui::kit::SessionOptions sessionOptions;
    sessionOptions.pseudoLocalization = options.pseudoLocalization;
    // Longer than the silence inside an alert tone.
    sessionOptions.quiet = std::chrono::milliseconds(appOptions.indicator.alertToneDurationMs +
                                                     appOptions.indicator.alertTonePauseMs + 200);
    ui::kit::Session session(sessionOptions);
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
