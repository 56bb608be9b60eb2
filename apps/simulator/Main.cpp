// The demo payment application. Headless, it renders its screens and saves them as PNGs.
#include "Screens.hpp"

#include <ui/Xui.hpp>

#include <boost/program_options.hpp>

#include <iostream>

namespace po = boost::program_options;

int main(int argc, char** argv) {
    po::options_description options("Options");
    std::string out;
    options.add_options()("help,h", "show this help")(
        "out", po::value<std::string>(&out)->default_value("out"), "folder for the screenshots");
    po::variables_map args;
    try {
        po::store(po::parse_command_line(argc, argv, options), args);
        po::notify(args);
    } catch (const po::error& e) {
        std::cerr << "ui_demo: " << e.what() << "\n" << options;
        return 2;
    }
    if (args.count("help")) {
        std::cout << "Demo payment application on the terminal UI library.\n" << options;
        return 0;
    }

    char rotate[] = "ROTATE=0";
    char statusbar[] = "STATUSBAR=24";
    char* xuiArgs[] = {rotate, statusbar};
    ui::Xui::Open(2, xuiArgs);
    const std::string path = out + "/labels.png";
    const bool saved = demo::renderLabelShowcase(path);
    ui::Xui::Close();
    if (!saved) {
        std::cerr << "ui_demo: cannot write " << path << "\n";
        return 1;
    }
    std::cout << "wrote " << path << "\n";
    return 0;
}
