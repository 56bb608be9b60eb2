#include "ui/ContactlessStatusIndicator.hpp"

namespace ui {

ContactlessStatusIndicator::ContactlessStatusIndicator(unsigned int x, unsigned int y, unsigned int width,
                                                       unsigned int height)
    : Widget(x, y, width, height) {}

ContactlessStatusIndicator::~ContactlessStatusIndicator() = default;

void ContactlessStatusIndicator::setState(State state) {
    std::lock_guard<std::mutex> lock(stateMutex_);
    state_ = state;
}

State ContactlessStatusIndicator::getState() const {
    std::lock_guard<std::mutex> lock(stateMutex_);
    return state_;
}

void ContactlessStatusIndicator::draw(_XuiWindow*) {}

} // namespace ui
