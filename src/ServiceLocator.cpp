#include "ui/ContactlessStatusIndicator.hpp"
#include "ui/IGraphics.hpp"

namespace ui {

IGraphics* ServiceLocator::graphics_ = nullptr;
input::KeyBoard* ServiceLocator::input_ = nullptr;
std::mutex ServiceLocator::inputMutex_;
ContactlessStatusIndicator* ServiceLocator::indicator_ = nullptr;
std::mutex ServiceLocator::indicatorMutex_;

void ServiceLocator::addGraphicsService(IGraphics* graphics) {
    graphics_ = graphics;
}
IGraphics* ServiceLocator::getGraphicsService() {
    return graphics_;
}

void ServiceLocator::addInputService(input::KeyBoard* input) {
    std::lock_guard<std::mutex> lock(inputMutex_);
    input_ = input;
}

input::KeyBoard* ServiceLocator::getInputService() {
    std::lock_guard<std::mutex> lock(inputMutex_);
    return input_;
}

void ServiceLocator::addContactlessStatusIndicator(ContactlessStatusIndicator* indicator) {
    std::lock_guard<std::mutex> lock(indicatorMutex_);
    indicator_ = indicator;
}

void ServiceLocator::removeContactlessStatusIndicator(ContactlessStatusIndicator* indicator) {
    std::lock_guard<std::mutex> lock(indicatorMutex_);
    if (indicator_ == indicator)
        indicator_ = nullptr;
}

void ServiceLocator::updateContactlessIndicator(State state) {
    std::lock_guard<std::mutex> lock(indicatorMutex_);
    if (indicator_)
        indicator_->setState(state);
}

} // namespace ui
