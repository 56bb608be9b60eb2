#include "ui/Header.hpp"

#include <algorithm>
#include <stdexcept>

namespace ui {

SignalStrength::SignalStrength(const geom::rectangle& area, const std::vector<Image>& images)
    : Widget(area.x, area.y, area.width, area.height), images_(images) {
    if (images_.empty())
        throw std::invalid_argument("no images found for indicator");
}

SignalStrength::~SignalStrength() = default;

void SignalStrength::setSignal(unsigned int percent) {
    if (percent > 100) {
        index_ = 0;
        return;
    }
    const auto count = static_cast<unsigned int>(images_.size());
    index_ = std::min(percent * count / 100, count - 1);
}

unsigned int SignalStrength::getSignal() const {
    return index_;
}

void SignalStrength::draw(_XuiWindow* canvas) {
    if (isVisible())
        images_.at(index_).draw(canvas);
}

} // namespace ui
