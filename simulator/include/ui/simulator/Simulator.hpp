// Any application on the library, run on a PC from its own main: in a window (the panel at a
// zoom, the PC keyboard as keypad, the LEDs as the panel draws them, the tones on the sound
// card) or headless (a session script played and recorded).
//
//   int main(int argc, char** argv) {
//       ui::simulator::Program program;
//       program.name = "pay-sim";
//       program.defaultScript = "sale.session";
//       return ui::simulator::run(argc, argv, program, [](const ui::simulator::Context& context) {
//           return std::make_unique<PayApp>(context);
//       });
//   }
//
// The factory runs once the simulator has set up the platform (the panel, the strings, the
// pinned clock of a session): the application opens the display and builds its screens there.
#pragma once

#include <ui/session/Recording.hpp>
#include <ui/session/Script.hpp>

#include <ui/ui.hpp>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace ui::simulator {

// What the simulator has set up for the application it builds.
struct Context {
    // Open the display with these (the rotation and status bar of --rotate and --statusbar).
    GraphicsDeviceParams display{0, 32};
    // Enable the contactless indicator with this: the defaults in the window, a pinned timing
    // in a headless run (see Program::headlessIndicator).
    CtlsStatusIndicatorConfiguration indicator;
    // Call at each moment of the application's flow that no key or tap ends on ("processing",
    // "approved"), once its screen is up, on the application's own thread: a headless run
    // pictures it as a step of its own. Does nothing in the window.
    void moment(const std::string& what) const {
        if (onMoment)
            onMoment(what);
    }
    std::function<void(const std::string&)> onMoment;
};

using Factory = std::function<std::unique_ptr<ui::session::Application>(const Context&)>;

// The indicator's timing that pictures an idle flash the same on every run: the flash comes one
// second into idling and stays lit for ten minutes, however long a step takes.
CtlsStatusIndicatorConfiguration pinnedIndicator(CtlsStatusIndicatorConfiguration configuration = {});

// What the program is: its name in messages, its help, its defaults.
struct Program {
    std::string name = "simulator";
    // The first lines of --help.
    std::string description = "Payment terminal simulator: an application on the UI library.";
    // Played headless when no --script is given; empty: a headless run needs --script.
    std::string defaultScript;
    std::string defaultOut = "out/simulator";
    std::string windowTitle = "Payment terminal simulator";
    // The indicator's timing in a headless run. The default pins the idle flash (above);
    // whatever an application chooses here, it is pictured the same on every run only with a
    // short idle period and a flash longer than any step.
    CtlsStatusIndicatorConfiguration headlessIndicator = pinnedIndicator();
};

// Parses the command line (--help lists the options, the window's keys and the script
// commands), sets up the platform and runs the application in a window (--window) or headless.
// Returns the process's exit code: 0; 1 when the run fails (no window, an output that cannot be
// written, a step that does not settle); 2, with one line on standard error, for a malformed
// option or script line.
int run(int argc, char** argv, const Program& program, const Factory& factory);

// The headless run on its own, for a test: the script played to its end and recorded.
struct HeadlessOptions {
    std::string out;               // empty: nothing written
    double pseudoLocalization = 0; // see osal::host::setPseudoLocalization; 0: off
    std::string language;          // "de": res/strings/de.txt; empty: the strings loaded
    GraphicsDeviceParams display{0, 32};
    std::function<void(const ui::session::Step&)> onStep = nullptr; // see ui::session::SessionOptions
};
struct HeadlessResult {
    std::vector<ui::session::Step> steps;
    std::vector<std::string> files; // what was written, in order
};
// Throws ScriptError for a line the application cannot play, std::runtime_error for a step
// that does not settle or an output that cannot be written.
HeadlessResult playHeadless(const std::vector<ui::session::Command>& script, const HeadlessOptions& options,
                            const Program& program, const Factory& factory);

// The window on its own. Needs SDL2 (a build without it returns 1 at once).
struct WindowOptions {
    unsigned zoom = 2;
    GraphicsDeviceParams display{0, 32};
    // Played first, its keys typed as keyboard events; shots are pictures of the window. With a
    // script, the animations stand still where a session pictures them.
    std::vector<ui::session::Command> script;
    bool quitAfterScript = false;
    std::string screenshots = "out"; // folder for F12 and the script's shots
};
int runWindow(const WindowOptions& options, const Program& program, const Factory& factory);

// The help text of the window's keys.
const char* windowKeys();

} // namespace ui::simulator
