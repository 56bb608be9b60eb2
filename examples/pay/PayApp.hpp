// The example application, the same source on the terminal, in the simulator and under test:
// the status header, the contactless indicator in its corner and the payment screen. Its card
// reader belongs to the platform (the terminal's reader, the simulator's hotkeys, a test's
// tap): whichever it is calls cardTapped.
#pragma once

#include "PayScreen.hpp"

#include <ui/app/AppThread.hpp>
#include <ui/app/Screen.hpp>
#include <ui/ui.hpp>

#include <memory>

namespace pay {

struct PayOptions {
    GraphicsDeviceParams display{0, 32};
    // The card schemes' default tones: success 1500 Hz for 500 ms, the alert 750 Hz for 200 ms,
    // twice.
    CtlsStatusIndicatorConfiguration indicator;
};

class PayApp {
public:
    // Opens the display and shows the payment screen below the status header.
    explicit PayApp(const PayOptions& options = {});
    ~PayApp();
    PayApp(const PayApp&) = delete;
    PayApp& operator=(const PayApp&) = delete;

    // From the card reader's thread, at once: the outcome plays on the application's thread
    // (the success sequence blocks whoever asks for it until the LEDs are dark).
    void cardTapped(bool approved);
    // Returns once every tap has been played.
    void waitUntilIdle() { thread_.waitUntilIdle(); }

    ui::IGraphics& graphics() { return *graphics_; }
    PayScreen& screen() { return *screen_; }

private:
    ui::UserInterface ui_;
    ui::IGraphics* graphics_ = nullptr;
    std::shared_ptr<app::StatusHeader> header_;
    std::shared_ptr<PayScreen> screen_;
    // Last: the thread stops before anything it works on goes.
    app::AppThread thread_;
};

} // namespace pay
