// The demo payment application: an idle screen with the "present card" animation, the
// merchant menu, a receipt being printed and the result, under a live status header.
#pragma once

#include <ui/ui.hpp>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace demo {

class Screen;

class DemoApp {
public:
    // Opens the display (a 32-pixel status header) and shows the idle screen.
    DemoApp();
    ~DemoApp();
    DemoApp(const DemoApp&) = delete;
    DemoApp& operator=(const DemoApp&) = delete;

    // Navigation, callable from key handlers (keypad thread) and the application thread.
    void showIdle();
    void showMenu();
    void showLabels();
    void startSale();

    // True once the user asked to leave (the power key).
    bool finished() const { return finished_; }
    void finish() { finished_ = true; }

    // Keys (other than "no key") that a screen has finished handling.
    int keysHandled() const { return keysHandled_; }
    void keyHandled() { ++keysHandled_; }
    // Waits for the receipt of a sale to finish printing.
    void waitForSale();
    // Called on the printing thread after each step is requested on screen.
    std::function<void(unsigned percent)> progressObserver;
    ui::IGraphics& graphics() { return *graphics_; }

    // The header's icons are set from the application's thread, then redrawn.
    void refreshHeader();

private:
    void show(const std::shared_ptr<Screen>& screen);
    void runReceipt();

    ui::UserInterface ui_;
    ui::IGraphics* graphics_ = nullptr;
    std::shared_ptr<Screen> idle_, menu_, labels_, receipt_, approved_;
    std::shared_ptr<Screen> current_;
    std::shared_ptr<ui::ProgressBar> progress_;
    std::thread worker_;
    std::atomic<bool> finished_{false};
    std::atomic<int> keysHandled_{0};
};

} // namespace demo
