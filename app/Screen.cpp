#include <ui/app/Screen.hpp>

namespace app {

Screen::Screen()
    : Screen(0, 0, static_cast<unsigned>(GetMainCanvasWidth()),
             static_cast<unsigned>(GetMainCanvasHeight())) {}

Screen::Screen(unsigned x, unsigned y, unsigned width, unsigned height) : IContainer(x, y, width, height) {}

void Screen::add(std::shared_ptr<ui::Widget> widget) {
    widgets.push_back(std::move(widget));
}

void Screen::clearWidgets() {
    widgets.clear();
}

void Screen::draw(_XuiWindow* canvas) {
    if (isVisible())
        drawWidgets(canvas);
}

void Screen::handleKeyPress(const device::input::Key&) {}
void Screen::onShow() {}
void Screen::onHide() {}
void Screen::onRefresh() {}
bool Screen::isFinished() const {
    return false;
}

PromptScreen::PromptScreen(ui::input::InputPrompt prompt, unsigned x, unsigned y, unsigned width,
                           unsigned height)
    : Screen(x, y, width, height), prompt_(std::move(prompt)) {}

PromptScreen::PromptScreen(ui::input::InputPrompt prompt) : Screen(), prompt_(std::move(prompt)) {}

void PromptScreen::setErrorLine(std::shared_ptr<ui::Widget> error) {
    error_ = std::move(error);
    if (error_)
        error_->setVisible(false);
}

void PromptScreen::press(const device::input::Key& key) {
    using namespace device::input;
    if (key == KEY_NONE)
        return;
    bool error = false;
    if (key == KEY_ENTER) {
        if (prompt_.validateInputText() && (!onEnter || onEnter(prompt_.getInputText())))
            return; // taken: whoever took it shows what comes next
        error = true;
    } else if (key == KEY_CLEAR) {
        prompt_.clear();
    } else if (key == KEY_CANCEL) {
        if (prompt_.getInputText().empty() && onCancel) {
            onCancel();
            return;
        }
        prompt_.clearAll();
    } else {
        prompt_.injectKey(key);
    }
    if (error_)
        error_->setVisible(error);
    if (ui::IGraphics* graphics = ui::ServiceLocator::getGraphicsService())
        graphics->update();
}

void PromptScreen::draw(_XuiWindow* canvas) {
    if (!isVisible())
        return;
    drawWidgets(canvas);
    prompt_.draw(canvas);
    if (error_)
        error_->draw(canvas);
}

StatusHeader::StatusHeader(const std::string& directory) : Screen(0, 0, 320, 32) {
    offline_ = std::make_shared<ui::OfflineTransactionStore>(166, 1, 32, 16, directory);
    update_ = std::make_shared<ui::ApplicationUpdate>(198, 4, 24, 24, directory);
    std::vector<ui::Image> bars;
    for (int i = 0; i < 5; ++i)
        bars.emplace_back(directory + "images/header/signal/signal_" + std::to_string(i) + ".png", 222, 4, 0,
                          0);
    signal_ = std::make_shared<ui::SignalStrength>(ui::geom::rectangle{222, 4, 24, 24}, bars);
    ethernet_ = std::make_shared<ui::Ethernet>(246, 4, 24, 24, directory);
    flight_ = std::make_shared<ui::FlightMode>(270, 4, 24, 24, directory);
    battery_ = std::make_shared<ui::Battery>(294, 4, 24, 24, directory);
    // The clock needs 96 pixels, or its date wraps.
    widgets = {
        std::make_shared<ui::Time>(70, 0, 96, 20), offline_, update_, signal_, ethernet_, flight_, battery_};
}

void StatusHeader::setBattery(int level) {
    battery_->setValue(level);
}
void StatusHeader::setEthernet(bool connected) {
    ethernet_->setValue(connected);
}
void StatusHeader::setSignal(unsigned percent) {
    signal_->setSignal(percent);
}
void StatusHeader::setFlightMode(bool on) {
    flight_->setVisible(on);
}
void StatusHeader::setOfflineCount(int count) {
    offline_->setValue(count);
}
void StatusHeader::setUpdateAvailable(bool available) {
    update_->setValue(available);
}

} // namespace app
