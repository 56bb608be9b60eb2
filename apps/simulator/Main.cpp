// The demo payment application. Headless (the default) it plays a scripted session and saves
// a screenshot of each step; with --window it runs in a window, the keyboard as keypad.
#include "DemoApp.hpp"
#include "SdlWindow.hpp"

#include <osal/host.hpp>
#include <xui_host.hpp>

#include <boost/program_options.hpp>

#include <iostream>

namespace po = boost::program_options;

namespace {

// Plays keys into the keypad and saves what the panel shows after each step.
class Script {
public:
    Script(demo::DemoApp& app, std::string out) : app_(app), out_(std::move(out)) {}

    void press(int code, int times = 1) {
        for (int i = 0; i < times; ++i) {
            const int handled = app_.keysHandled();
            xui_host::pushKey(code);
            while (app_.keysHandled() == handled)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    // Asks for a frame and waits until it is on the panel, so that the picture shows
    // everything done before the call.
    bool snapshot(const std::string& name) {
        const auto frames = xui_host::framesShown();
        app_.graphics().update();
        xui_host::waitForFrames(frames + 1, std::chrono::seconds(5));
        app_.graphics().waitForDraw();
        const std::string path = out_ + "/" + name + ".png";
        const bool ok = xui_host::savePng(xui_host::screen(), path);
        std::cout << (ok ? "wrote " : "cannot write ") << path << "\n";
        ok_ &= ok;
        return ok;
    }

    bool ok() const { return ok_; }

private:
    demo::DemoApp& app_;
    std::string out_;
    bool ok_ = true;
};

int runHeadless(const std::string& out) {
    // A fixed moment of the animation, so that the pictures are the same on every run.
    xui_host::pinAnimationTime(std::chrono::milliseconds(900));
    demo::DemoApp app;
    Script script(app, out);
    script.snapshot("01_idle");
    script.press(XUI_KEY_ENTER);
    script.snapshot("02_menu");
    script.press(XUI_KEY_DOWN, 3); // Refund, then past the disabled Void, Pre-authorisation, Reports
    script.snapshot("03_menu_scrolled");
    script.press(XUI_KEY_UP, 3);
    app.progressObserver = [&](unsigned percent) {
        if (percent == 50)
            script.snapshot("04_printing");
    };
    script.press(XUI_KEY_ENTER); // Sale
    app.waitForSale();
    script.snapshot("05_approved");
    script.press(XUI_KEY_CANCEL);
    script.press(XUI_KEY_F1);
    script.snapshot("06_labels");
    script.press(XUI_KEY_CANCEL);
    return script.ok() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    po::options_description options("Options");
    std::string out;
    unsigned scale = 2;
    options.add_options()("help,h", "show this help")("window,w", "run in a window, the keyboard as keypad")(
        "scale", po::value<unsigned>(&scale)->default_value(2), "window pixels per panel pixel")(
        "out", po::value<std::string>(&out)->default_value("out"), "folder for the headless screenshots");
    po::variables_map args;
    try {
        po::store(po::parse_command_line(argc, argv, options), args);
        po::notify(args);
    } catch (const po::error& e) {
        std::cerr << "ui_demo: " << e.what() << "\n" << options;
        return 2;
    }
    if (args.count("help")) {
        std::cout << "Demo payment application on the terminal UI library.\n"
                  << "Keys in the window: digits, Enter, Esc (cancel), Backspace (clear), arrows, F1-F4,\n"
                  << "Q or closing the window quits.\n\n"
                  << options;
        return 0;
    }
    osal::host::loadStrings("res/strings/en.txt");
    return args.count("window") ? demo::runWindow(scale) : runHeadless(out);
}
