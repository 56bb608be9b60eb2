// The window for builds without SDL2 (a cross build, say): headless only.
#include "ui/simulator/Simulator.hpp"

#include <iostream>

namespace ui::simulator {

int runWindow(const WindowOptions&, const Program& program, const Factory&) {
    std::cerr << program.name
              << ": this build has no window (SDL2 was not found); it plays sessions headless\n";
    return 1;
}

const char* windowKeys() {
    return "This build has no window: it was built without SDL2.";
}

} // namespace ui::simulator
