#include "ui/Header.hpp"

#include "ui/Xui.hpp"
#include <osal/date_time.hpp>

#include <osal/resource.hpp>

#include <boost/date_time/posix_time/posix_time.hpp>

#include <string>

namespace {
// Shared by every clock: the header has one, and the last one built places them.
ui::Label time_label;
ui::Label date_label;
} // namespace

std::string format(int n) {
    return n <= 9 ? "0" + std::to_string(n) : std::to_string(n);
}

std::string getTimeAsString(int hours, int minutes) {
    return format(hours) + ":" + format(minutes);
}

namespace ui {

std::string getDateAsString(int day, int month, int year) {
    return format(day) + "/" + format(month) + "/" + format(year);
}

Time::Time(unsigned int x, unsigned int y, unsigned int width, unsigned int height)
    : Widget(x, y, width, height) {
    time_label = Label(x, y, width, height);
    date_label = Label(x, y, width, height);
    const unsigned colour = resource::ResourceMapping::getResourceColor(resource::BRAND_CLOCK);
    time_label.setColor(colour);
    time_label.setAlignment(utils::Centre);
    time_label.setFontSize(fonts::getFontSize());
    date_label.verticalAlignment(false);
    date_label.setColor(colour);
    date_label.setAlignment(utils::Centre);
    date_label.setFontSize(fonts::getFontSize() / 2);
    date_label.setY(time_label.getY() + time_label.getHeight());
}

Time::~Time() = default;

void Time::draw(_XuiWindow* window) {
    if (!isVisible())
        return;
    const boost::posix_time::ptime now = date_time::ptime_from_epoch(date_time::getLocalTime().get());
    const auto clock = now.time_of_day();
    const auto date = now.date();
    time_label.setText(getTimeAsString(static_cast<int>(clock.hours()), static_cast<int>(clock.minutes())));
    date_label.setText(getDateAsString(date.day(), date.month(), date.year()));
    time_label.draw(window);
    date_label.draw(window);
}

} // namespace ui
