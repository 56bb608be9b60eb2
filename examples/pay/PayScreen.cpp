#include "PayScreen.hpp"

namespace pay {

namespace {

// The string identifiers of res/strings/en.txt.
enum Text { EnterAmount = 1, PresentCard, Approved, Declined };

void redraw() {
    if (ui::IGraphics* graphics = ui::ServiceLocator::getGraphicsService())
        graphics->update();
}

} // namespace

PayScreen::PayScreen(app::AppThread& thread)
    : PromptScreen(ui::input::createCurrencyPrompt(1, 99999, 2, "\xC2\xA3", ".")), thread_(thread) {
    prompt().setText(EnterAmount);
    ui::input::AlignCenter(prompt());
    status_ = std::make_shared<ui::Label>(0, 170, 320, 30);
    status_->setAlignment(ui::utils::Centre);
    status_->setFontSize(24);
    status_->setColor(resource::ResourceMapping::getResourceColor(resource::BRAND_TEXT));
    add(status_);
    onEnter = [this](const std::string& entry) {
        amount_ = std::stol(entry);
        showStatus(PresentCard);
        thread_.post([] { ui::ServiceLocator::updateContactlessIndicator(ui::State::Ready); });
        return true;
    };
}

void PayScreen::cardTapped(bool approved) {
    // Success returns once the LEDs and the tone have played: the outcome shows after them.
    ui::ServiceLocator::updateContactlessIndicator(approved ? ui::State::Success : ui::State::Error);
    showStatus(approved ? Approved : Declined);
    redraw();
}

void PayScreen::showStatus(int text) {
    status_->setText(Localization::getLocalizedString(text));
    status_->setHeight(30); // setText makes it 20 high, too low for a 24-pixel line
}

} // namespace pay
