#include "Fuzz.hpp"

#include <osal/host.hpp>
#include <ui/GraphicsDevice.hpp>

namespace fuzz {

std::map<std::string, Target>& targets() {
    static std::map<std::string, Target> all;
    return all;
}

void openDisplay() {
    static const bool opened = [] {
        osal::host::setLogSink([](LogLevel, const std::string&) {}); // failures are expected here
        // A graphics device, so that the layout helpers see the canvas size; never destroyed.
        return new ui::GraphicsDevice(GraphicsDeviceParams{0, 24}) != nullptr;
    }();
    (void)opened;
}

} // namespace fuzz
