// The host stand-ins as a test needs them: every default restored, the library's services
// forgotten and its image cache emptied when it begins, the same again when it ends, and what
// the library logged kept for the test to read. A Terminal holds one; a test of widgets on a
// bare display uses it alone.
#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace ui::kit {

class Platform {
public:
    Platform();
    ~Platform();
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

    // The lines logged since the platform was made, in order.
    std::vector<std::string> log() const;

    // Opens the display as the terminal's start-up does, with ROTATE and STATUSBAR arguments.
    static void openDisplay(int rotate = 0, int statusbar = 24);
    // Forgets the graphics, input and contactless services an earlier test registered.
    static void forgetServices();

private:
    mutable std::mutex mutex_;
    std::vector<std::string> log_;
};

} // namespace ui::kit
