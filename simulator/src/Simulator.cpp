// The simulator's command line: the same options for every application on it.
#include "ui/simulator/Simulator.hpp"

#include <ui/session/Script.hpp>

#include <osal/host.hpp>
#include <xui_host.hpp>

#include <boost/program_options.hpp>

#include <filesystem>
#include <iostream>

namespace po = boost::program_options;

namespace ui::simulator {

int run(int argc, char** argv, const Program& program, const Factory& factory) {
    const std::string& name = program.name;
    po::options_description options("Options");
    std::string script, out, panel, data, language;
    unsigned zoom = 2;
    double pseudo = 0;
    int rotate = 0, statusbar = 32;
    options.add_options()("help,h", "show this help")           //
        ("window,w", "run in a window, the keyboard as keypad") //
        ("script", po::value<std::string>(&script),
         program.defaultScript.empty()
             ? "session script to play"
             : ("session script to play (headless default: " + program.defaultScript + ")").c_str()) //
        ("out", po::value<std::string>(&out)->default_value(program.defaultOut),
         "folder for the recording (headless) or the screenshots (window)")                             //
        ("zoom", po::value<unsigned>(&zoom)->default_value(2), "window pixels per panel pixel")         //
        ("panel", po::value<std::string>(&panel)->default_value("320x240"), "panel size, WIDTHxHEIGHT") //
        ("rotate", po::value<int>(&rotate)->default_value(0), "screen rotation passed to Xui")          //
        ("statusbar", po::value<int>(&statusbar)->default_value(32), "status-bar height in pixels")     //
        ("quit-after-script", "window: close once the script has played")                               //
        ("lang", po::value<std::string>(&language)->default_value("en"),
         "the language of the strings, res/strings/LANG.txt (en, de); currency and date formats stay "
         "the terminal's") //
        ("pseudo", po::value<double>(&pseudo)->default_value(0),
         "pseudo-localize every string, FACTOR times as long (1.4: 40 % longer), accented and "
         "bracketed; 0: off") //
        ("data", po::value<std::string>(&data),
         "folder to work from, holding res/ and the default script (default: the current one)");
    po::variables_map args;
    unsigned width = 0, height = 0;
    try {
        po::store(po::parse_command_line(argc, argv, options), args);
        po::notify(args);
        char x = 0;
        std::istringstream size(panel);
        if (!(size >> width >> x >> height) || x != 'x' || width == 0 || height == 0)
            throw po::error("--panel takes WIDTHxHEIGHT, for example 320x240");
    } catch (const po::error& e) {
        std::cerr << name << ": " << e.what() << "\n";
        return 2;
    }
    if (args.count("help")) {
        std::cout << program.description << "\n"
                  << "Without --window it plays a session script and writes, under --out, a picture per\n"
                  << "step, session.gif, timeline.txt (LEDs and tones), tones.wav and storyboard.html.\n\n"
                  << windowKeys() << "\n"
                  << options << "\n"
                  << ui::session::scriptHelp();
        return 0;
    }

    // The library finds its pictures and fonts under ./res, as on the terminal: work from the
    // data folder, with the paths given on the command line still meaning what they said.
    if (!data.empty()) {
        std::error_code error;
        out = std::filesystem::absolute(out, error).string();
        if (!script.empty())
            script = std::filesystem::absolute(script, error).string();
        std::filesystem::current_path(data, error);
        if (error) {
            std::cerr << name << ": cannot work from " << data << ": " << error.message() << "\n";
            return 2;
        }
    }

    std::vector<ui::session::Command> commands;
    try {
        if (script.empty() && !args.count("window"))
            script = program.defaultScript;
        if (script.empty() && !args.count("window"))
            throw ui::session::ScriptError("a headless run needs a script: --script FILE, or --window");
        if (!script.empty())
            commands = ui::session::loadScript(script);
    } catch (const ui::session::ScriptError& e) {
        std::cerr << name << ": " << e.what() << "\n";
        return 2;
    }

    if (!osal::host::loadStrings("res/strings/" + language + ".txt")) {
        std::cerr << name << ": no strings for the language \"" << language << "\" (res/strings/" << language
                  << ".txt)\n";
        return 2;
    }
    xui_host::setPanelSize(width, height);
    const GraphicsDeviceParams display{rotate, statusbar};
    if (args.count("window")) {
        osal::host::setPseudoLocalization(pseudo);
        WindowOptions window;
        window.display = display;
        window.zoom = zoom;
        window.script = commands;
        window.quitAfterScript = args.count("quit-after-script") > 0;
        window.screenshots = out;
        return runWindow(window, program, factory);
    }
    try {
        HeadlessOptions headless;
        headless.out = out;
        headless.pseudoLocalization = pseudo;
        headless.display = display;
        const auto result = playHeadless(commands, headless, program, factory);
        std::cout << "Played " << result.steps.size() << " steps; wrote " << result.files.size()
                  << " files to " << out << ":\n  " << out
                  << "/storyboard.html (open this), session.gif, timeline.txt, tones.wav\n";
        return 0;
    } catch (const ui::session::ScriptError& e) {
        std::cerr << name << ": " << e.what() << "\n";
        return 2;
    } catch (const std::exception& e) {
        std::cerr << name << ": " << e.what() << "\n";
        return 1;
    }
}

} // namespace ui::simulator
