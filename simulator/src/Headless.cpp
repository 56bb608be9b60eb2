#include "ui/simulator/Simulator.hpp"

#include <ui/session/Session.hpp>

#include <stdexcept>

namespace ui::simulator {

CtlsStatusIndicatorConfiguration pinnedIndicator(CtlsStatusIndicatorConfiguration configuration) {
    configuration.idlePeriodMs = 1000;
    configuration.idleFlashMs = 600000;
    return configuration;
}

HeadlessResult playHeadless(const std::vector<ui::session::Command>& script, const HeadlessOptions& options,
                            const Program& program, const Factory& factory) {
    ui::session::SessionOptions sessionOptions;
    sessionOptions.pseudoLocalization = options.pseudoLocalization;
    sessionOptions.language = options.language;
    sessionOptions.onStep = options.onStep;
    // Before the application: it pins the clock and the strings its screens read as they are built.
    ui::session::Session session(sessionOptions);
    Context context;
    context.display = options.display;
    context.indicator = program.headlessIndicator;
    // The moments come on the application's thread while the script's line waits for it: one
    // at a time.
    context.onMoment = [&session](const std::string& what) { session.moment(what); };
    HeadlessResult result;
    {
        const std::unique_ptr<ui::session::Application> app = factory(context);
        if (!app)
            throw std::runtime_error("the factory built no application");
        result.steps = session.play(script, *app);
    }
    if (!options.out.empty())
        result.files = session.write(options.out);
    return result;
}

} // namespace ui::simulator
