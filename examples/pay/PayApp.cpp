#include "PayApp.hpp"

namespace pay {

PayApp::PayApp(const PayOptions& options) : ui_(options.display) {
    ui_.initialize();
    graphics_ = ui::ServiceLocator::getGraphicsService();
    header_ = std::make_shared<app::StatusHeader>();
    graphics_->getWindow()->setHeader(header_);
    ui_.enableContactless(app::StatusHeader::kIndicatorArea, options.indicator);
    screen_ = std::make_shared<PayScreen>(thread_);
    graphics_->setContext(screen_);
    graphics_->update();
}

PayApp::~PayApp() {
    // No key may reach the screen once it is going: unbinding waits for a key being handled.
    if (ui::input::KeyBoard* keys = ui::ServiceLocator::getInputService())
        keys->bind(nullptr);
    thread_.waitUntilIdle();
}

void PayApp::cardTapped(bool approved) {
    thread_.post([this, approved] { screen_->cardTapped(approved); });
}

} // namespace pay
