// The window for builds without SDL2 (a cross build for the terminal, say): headless only.
#include "SdlWindow.hpp"

#include <iostream>

namespace demo {

int runWindow(const WindowOptions&) {
    std::cerr << "ui_demo: this build has no window (SDL2 was not found); it plays sessions headless\n";
    return 1;
}

const char* windowKeys() {
    return "This build has no window: it was built without SDL2.";
}

} // namespace demo
