// The demo payment application: what a payment application on the terminal does with the
// library, screen by screen. Idle (the status header, the contactless indicator idling, the
// "present card" animation), the main menu, a sale or refund (amount, present card, approval
// or decline with the indicator's sequences and tones, the receipt), the settings (IP address,
// date, time, merchant name by multi-tap, PIN) and the library's version.
#pragma once

#include <ui/app/AppThread.hpp>
#include <ui/app/Screen.hpp>
#include <ui/session/Script.hpp>

#include <ui/ui.hpp>

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace demo {

class DemoScreen;

struct AppOptions {
    GraphicsDeviceParams display{0, 32};
    CtlsStatusIndicatorConfiguration indicator;
    // Called on the application's thread at the moments of a sale that no key or tap ends on
    // ("processing", "approved", "printing"), once their screen is up: a recorder pictures them.
    std::function<void(const std::string&)> moment;
};

class PaymentApp : public ui::session::Application {
public:
    // Opens the display, builds every screen and shows the idle one.
    explicit PaymentApp(const AppOptions& options = {});
    ~PaymentApp() override;
    PaymentApp(const PaymentApp&) = delete;
    PaymentApp& operator=(const PaymentApp&) = delete;

    // What the world outside the keypad does; callable from any thread, done in order on the
    // application's thread. A card tapped on the idle screen starts a sale; on the "present
    // card" screen it pays; elsewhere it is not asked for and nothing happens.
    void tapCard(bool approved) override;
    void setBattery(int level) override;
    void setEthernet(bool connected) override;
    void setSignal(unsigned percent) override;
    void setFlightMode(bool on) override;
    void setOfflineCount(int count) override;
    void setUpdateAvailable(bool available) override;
    // Redraws the header, for a clock that has moved on.
    void refreshHeader() override;

    // The last state asked of the contactless indicator.
    ui::State indicated() const override { return indicated_; }
    // Keys the screens have taken from the keypad so far.
    int keysTaken() const override { return keysReceived_; }
    // Returns once the application has done all it was asked (keys received included).
    void waitUntilIdle() override { thread_.waitUntilIdle(); }
    bool finished() const override { return finished_; }
    ui::IGraphics& graphics() override { return *graphics_; }
    // Every state of the header can be changed, from the window and from a script.
    ui::session::HeaderFeatures headerFeatures() const override {
        return {true, true, true, true, true, true};
    }
    ui::session::HeaderStatus headerStatus() const override {
        return {battery_, ethernet_, signal_, flight_, offline_, update_};
    }

private:
    friend class DemoScreen;
    enum class Setting { Address, Date, Time, Merchant, Pin };

    void received(std::function<void()> work);
    void show(const std::shared_ptr<DemoScreen>& screen);
    void indicate(ui::State state);
    void moment(const std::string& what);
    void header(const std::function<void(app::StatusHeader&)>& change);

    void showIdle();
    void showMenu();
    void enterAmount(bool refund);
    void presentCard(const std::string& amount);
    void authorise(bool approved);
    void printReceipt();
    // With the entry at index selected chosen.
    void showSettings(const std::string& status, int selected);
    void editSetting(Setting setting);
    void showAbout();

    ui::UserInterface ui_;
    ui::IGraphics* graphics_ = nullptr;
    std::shared_ptr<app::StatusHeader> header_;
    std::shared_ptr<DemoScreen> current_;
    std::shared_ptr<DemoScreen> idle_; // the idle screen while it is up
    std::function<void(const std::string&)> moment_;
    std::map<Setting, std::string> settings_;
    bool refund_ = false;
    bool awaitingCard_ = false;
    std::string amount_;
    std::atomic<int> keysReceived_{0};
    std::atomic<ui::State> indicated_{ui::State::Idle};
    std::atomic<bool> finished_{false};
    std::atomic<int> battery_{3};
    std::atomic<bool> ethernet_{true};
    std::atomic<unsigned> signal_{80};
    std::atomic<bool> flight_{false};
    std::atomic<int> offline_{2};
    std::atomic<bool> update_{true};
    // Last: the thread stops before anything it works on goes.
    app::AppThread thread_;
};

} // namespace demo
