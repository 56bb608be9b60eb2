#include "ui/Header.hpp"

#include "ui/Xui.hpp"

namespace ui {
namespace {

const char* const kOfflineStore = "images/header/ZEVA_12717_offline_store_icon2.png";

} // namespace

OfflineTransactionStore::OfflineTransactionStore(unsigned int x, unsigned int y, unsigned int width,
                                                 unsigned int height, const std::string& directory)
    : Widget(x, y, width, height), countLabel_(x, y, width, height),
      icon_(directory + kOfflineStore, x, y, width, height) {
    countLabel_.verticalAlignment(false);
    countLabel_.setAlignment(utils::Left);
    countLabel_.setFontSize(fonts::getFontSize() / 2);
    countLabel_.setY(icon_.getY() + icon_.getHeight());
}

OfflineTransactionStore::~OfflineTransactionStore() = default;

void OfflineTransactionStore::setValue(int count) {
    count_ = count;
}

void OfflineTransactionStore::draw(_XuiWindow* canvas) {
    const bool shown = count_ != 0;
    setVisible(shown);
    icon_.setVisible(shown);
    countLabel_.setVisible(shown);
    countLabel_.setText(count_ > 99 ? "+99" : std::to_string(count_));
    icon_.draw(canvas);
    countLabel_.draw(canvas);
}

} // namespace ui
