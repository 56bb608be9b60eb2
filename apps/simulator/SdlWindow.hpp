// The terminal in a window: the panel at a zoom, the PC keyboard as keypad, hotkeys for the
// card reader and the terminal's state, the tones on the sound card.
#pragma once

#include "PaymentApp.hpp"
#include <ui/session/Script.hpp>

#include <string>
#include <vector>

namespace demo {

struct WindowOptions {
    AppOptions app;
    unsigned zoom = 2;
    // Played first, its keys typed as keyboard events; shots are pictures of the window.
    std::vector<ui::session::Command> script;
    bool quitAfterScript = false;
    std::string screenshots = "out"; // folder for F12 and the script's shots
};

// Returns the process's exit code: 0, or 1 when no window can be opened.
int runWindow(const WindowOptions& options);

// The help text of the window's keys.
const char* windowKeys();

} // namespace demo
