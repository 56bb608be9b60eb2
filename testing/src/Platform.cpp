#include "ui/kit/Platform.hpp"

#include <ui/ui.hpp>

#include <osal/host.hpp>
#include <xui_host.hpp>

namespace ui::kit {

Platform::Platform() {
    xui_host::reset();
    osal::host::reset();
    osal::host::setLogSink([this](LogLevel, const std::string& line) {
        std::lock_guard<std::mutex> lock(mutex_);
        log_.push_back(line);
    });
    forgetServices(); // an earlier test's, gone with it
    // Pictures cached by an earlier test belong to a display that has gone.
    ImageResourceCache::clearCache();
}

Platform::~Platform() {
    ImageResourceCache::clearCache();
    forgetServices();
    xui_host::reset();
    osal::host::reset(); // the log sink too, before this goes
}

std::vector<std::string> Platform::log() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return log_;
}

void Platform::openDisplay(int rotate, int statusbar) {
    std::string a = "ROTATE=" + std::to_string(rotate), b = "STATUSBAR=" + std::to_string(statusbar);
    char* argv[] = {a.data(), b.data()};
    XuiOpen(2, argv);
}

void Platform::forgetServices() {
    ui::ServiceLocator::addGraphicsService(nullptr);
    ui::ServiceLocator::addInputService(nullptr);
    ui::ServiceLocator::addContactlessStatusIndicator(nullptr);
}

} // namespace ui::kit
