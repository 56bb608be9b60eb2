#include "Controls.hpp"

namespace ui::simulator {

bool operate(char control, ui::session::Application& app, const ui::session::HeaderFeatures& features) {
    try {
        const ui::session::HeaderStatus now = app.headerStatus();
        switch (control) {
        case 't':
        case 'd':
            app.tapCard(control == 't');
            return true;
        case 'b':
            return features.battery && (app.setBattery((now.battery + 1) % 7), true);
        case 'e':
            return features.ethernet && (app.setEthernet(!now.ethernet), true);
        case 's':
            return features.signal && (app.setSignal((now.signal + 25) % 125), true);
        case 'f':
            return features.flightMode && (app.setFlightMode(!now.flightMode), true);
        case 'o':
            return features.offlineCount && (app.setOfflineCount((now.offlineCount + 1) % 120), true);
        case 'u':
            return features.updateAvailable && (app.setUpdateAvailable(!now.updateAvailable), true);
        default:
            return false;
        }
    } catch (const ui::session::ScriptError&) {
        return true; // the application has no card reader of its own here
    }
}

} // namespace ui::simulator
