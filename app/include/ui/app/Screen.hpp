// What every application built on the library writes first: a screen with nothing to do on
// the hooks the library never calls, and the status header assembled from its icons.
#pragma once

#include <ui/ui.hpp>

#include <functional>
#include <memory>
#include <string>

namespace app {

// A view: children drawn in order (none while hidden), keys ignored, hooks that do nothing. Derive and
// override what the screen needs; handleKeyPress runs on the keypad thread.
class Screen : public ui::IContainer {
public:
    // The whole main canvas, as the graphics device made it.
    Screen();
    Screen(unsigned x, unsigned y, unsigned width, unsigned height);

    void add(std::shared_ptr<ui::Widget> widget);
    void clearWidgets();

    void draw(_XuiWindow* canvas) override;
    void handleKeyPress(const device::input::Key& key) override;
    void onShow() override;
    void onHide() override;
    void onRefresh() override;
    bool isFinished() const override;
};

// A screen around one prompt, with the keys every entry screen gives them: Enter hands the
// entry to onEnter once it validates (true: taken; otherwise the error line shows), Clear takes
// the last character back, Cancel empties the entry and, on an empty one, calls onCancel; any
// other key goes to the prompt. Each key hides the error line and asks for a redraw. Keys may
// come from the keypad thread or be handed on with press().
class PromptScreen : public Screen {
public:
    PromptScreen(ui::input::InputPrompt prompt, unsigned x, unsigned y, unsigned width, unsigned height);
    // The whole main canvas.
    explicit PromptScreen(ui::input::InputPrompt prompt);

    ui::input::InputPrompt& prompt() { return prompt_; }
    // Shown when Enter finds the entry invalid or not taken; hidden until then.
    void setErrorLine(std::shared_ptr<ui::Widget> error);

    void press(const device::input::Key& key);
    void handleKeyPress(const device::input::Key& key) override { press(key); }
    // The other widgets, then the prompt, then the error line.
    void draw(_XuiWindow* canvas) override;

    std::function<bool(const std::string&)> onEnter;
    std::function<void()> onCancel;

private:
    ui::input::InputPrompt prompt_;
    std::shared_ptr<ui::Widget> error_;
};

// The status header on a 320-pixel-wide, 32-pixel-high status bar: the contactless LEDs'
// place on the left (kIndicatorArea, where the indicator lays out its four LEDs), the clock,
// then the offline store, update, signal, Ethernet, flight mode and battery icons. Icons are
// read from directory + "images/header/...". Values may be set from any thread; the header
// shows them at its next redraw (IGraphics::updateHeader).
class StatusHeader : public Screen {
public:
    static constexpr ui::geom::rectangle kIndicatorArea{0, 0, 68, 32};

    explicit StatusHeader(const std::string& directory = "res/");

    // 0 to 4: charge, 5 and 6: charging (see ui::Battery).
    void setBattery(int level);
    void setEthernet(bool connected);
    void setSignal(unsigned percent);
    void setFlightMode(bool on);
    void setOfflineCount(int count);
    void setUpdateAvailable(bool available);

private:
    std::shared_ptr<ui::OfflineTransactionStore> offline_;
    std::shared_ptr<ui::ApplicationUpdate> update_;
    std::shared_ptr<ui::SignalStrength> signal_;
    std::shared_ptr<ui::Ethernet> ethernet_;
    std::shared_ptr<ui::FlightMode> flight_;
    std::shared_ptr<ui::Battery> battery_;
};

} // namespace app
