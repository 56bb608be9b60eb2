// The simulator's window: the panel on screen, the keyboard as keypad, beeps as sound.
#pragma once

namespace demo {

// Runs the demo in an SDL2 window until it is closed; returns the process exit code.
int runWindow(unsigned scale);

} // namespace demo
