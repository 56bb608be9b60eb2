// The status header's widgets: icons chosen by a value the application sets, and the clock.
//
// They are drawn whenever the header is redrawn (updateHeader), on whichever thread asks for
// it; the application sets their values on its own thread and then asks for a redraw. Five of
// them keep their pictures in state shared by every instance of their class: the header
// holds one of each, and a second instance shares (for Battery: adds to) the first one's.
// Constructors taking a directory prepend it to each icon path as given (no separator added).
#pragma once

#include "ui/Image.hpp"
#include "ui/Label.hpp"

#include <memory>
#include <string>
#include <vector>

namespace ui {

// The "update available" icon, shown while the value is true.
class ApplicationUpdate : public Widget {
public:
    ApplicationUpdate(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                      const std::string& directory);
    ~ApplicationUpdate() override;
    void setValue(bool available);
    void draw(_XuiWindow* canvas) override;
};

// Battery charge: the value is the icon's index itself, 0 to 4 the charge icons (empty to
// full), 5 and 6 the two charging icons; the caller maps its reading to the index. Visible
// only on terminals that have a battery.
class Battery : public Widget {
public:
    Battery(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
            const std::string& directory);
    ~Battery() override;
    // Above 6 is ignored; below 0 shows 0. Safe from any thread.
    void setValue(int level);
    void draw(_XuiWindow* canvas) override;
};

// Ethernet link: a globe when connected. Invisible on terminals without an Ethernet port.
class Ethernet : public Widget {
public:
    Ethernet(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
             const std::string& directory);
    ~Ethernet() override;
    void setValue(bool connected);
    void draw(_XuiWindow* canvas) override;
};

// Draws the Ethernet icon for the current status, whatever the widget's visibility.
void drawIcon(_XuiWindow* canvas);

// Flight mode: hidden until setVisible(true).
class FlightMode : public Widget {
public:
    FlightMode(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
               const std::string& directory);
    ~FlightMode() override;
    void draw(_XuiWindow* canvas) override;

private:
    std::unique_ptr<ProxyImage> icon_;
};

// Transactions stored offline: the icon with the count under it in half-size text, "+99" above
// 99; nothing at all while the count is 0.
class OfflineTransactionStore : public Widget {
public:
    OfflineTransactionStore(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
                            const std::string& directory);
    ~OfflineTransactionStore() override;
    void setValue(int count);
    void draw(_XuiWindow* canvas) override;

private:
    Label countLabel_;
    ProxyImage icon_;
    utl::relaxed<int> count_ = 0;
};

// Signal strength over the application's images, each covering an equal band of percentages,
// the last one 100 %. Each image draws at its own position.
class SignalStrength : public Widget {
public:
    using const_iterator = std::vector<Image>::const_iterator;

    // Throws std::invalid_argument "no images found for indicator" for an empty list.
    SignalStrength(const geom::rectangle& area, const std::vector<Image>& images);
    ~SignalStrength() override;

    // Above 100 shows the first image (no signal).
    void setSignal(unsigned int percent);
    // The image index, not the percentage.
    unsigned int getSignal() const;

    const_iterator begin() const { return images_.begin(); }
    const_iterator end() const { return images_.end(); }
    const_iterator cbegin() const { return images_.cbegin(); }
    const_iterator cend() const { return images_.cend(); }

    void draw(_XuiWindow* canvas) override;

private:
    utl::relaxed<unsigned int> index_ = 0;
    std::vector<Image> images_;
};

// The local time ("09:05") above the date ("07/03/2025") in half-size text. Reads the clock
// each time it is drawn. All instances share the two labels: the last one built places them.
// Throws Boost.Date_Time's range error for a clock outside the years 1400 to 9999.
class Time : public Widget {
public:
    Time(unsigned int x, unsigned int y, unsigned int width, unsigned int height);
    ~Time() override;
    void draw(_XuiWindow* canvas) override;
};

// "dd/mm/yyyy", each part through format().
std::string getDateAsString(int day, int month, int year);

} // namespace ui

// Two-digit text: a leading "0" for anything up to 9, negatives included ("0-5").
std::string format(int n);
// "hh:mm".
std::string getTimeAsString(int hours, int minutes);
