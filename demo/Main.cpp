// The terminal simulator with the demo payment application: headless (plays a session script
// and records it) or in a window (the keyboard as keypad).
#include "Demo.hpp"

int main(int argc, char** argv) {
    return ui::simulator::run(argc, argv, demo::program(), demo::build);
}
