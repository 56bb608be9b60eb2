#include "Support.hpp"

#include "ui/GraphicsDevice.hpp"
#include "ui/Header.hpp"
#include "ui/UserInterface.hpp"
#include "ui/Window.hpp"
#include "ui/Xui.hpp"

namespace {

const std::string kRes = "res/";
constexpr int64_t k0905on7March2025 = 1741338300;

class HeaderTest : public test::PlatformTest {
protected:
    // The file name of each picture drawn, in order.
    static std::vector<std::string> drawnPictures() {
        std::vector<std::string> names;
        for (const auto& c : xui_host::trace("CanvasDrawImg"))
            names.push_back(c.args.back());
        return names;
    }
    static std::string pictureOf(const std::string& path) {
        return xui_host::nameOf(ImageResourceCache::getImage(kRes + path)->getImage());
    }
    static std::vector<std::string> drawnTexts(ui::Widget& w) { return test::texts(test::drawCalls(w)); }
};

// In a process of its own, as the full header below: batteries share the pictures, and the
// place, of the first one built in the process, and keep them when its display has gone; the
// Ethernet icon's state is shared too, and starts disconnected.
TEST_F(HeaderTest, Battery_ShowsTheIndexedIcon_IgnoringValuesAboveSix) {
    EXPECT_EXIT(
        {
            ui::Ethernet ethernet(0, 0, 24, 24, kRes);
            ui::Battery battery(0, 0, 24, 24, kRes);
            std::string icons;
            const auto shown = [&](ui::Widget& b) {
                const auto calls = test::drawCalls(b, "CanvasDrawImg");
                const std::string file = calls.empty() ? "" : xui_host::imageFile(calls.back().args.back());
                icons += file.find("globe") != std::string::npos ? "globe "
                                                                 : file.substr(file.rfind('_') + 1) + " ";
            };
            for (int value : {0, 3, 7, 6, -3}) {
                if (value != 0)
                    battery.setValue(value);
                shown(battery);
            }
            battery.setValue(3);
            ui::Battery another(0, 0, 24, 24, kRes); // the shared level starts again at 0
            shown(another);
            shown(ethernet);
            std::fprintf(stderr, "%s\n", icons.c_str());
            std::_Exit(icons == "1.png 4.png 4.png 05.png 1.png 1.png icon.png " ? 0 : 1); // 05: charging
        },
        ::testing::ExitedWithCode(0), "");
}

// Ethernet shows the globe when connected; flight mode and update only when asked; battery and
// Ethernet not at all on a terminal without them, though drawIcon draws regardless.
TEST_F(HeaderTest, Icons_ShowTheirStateOnlyWhereTheTerminalHasThem) {
    ui::Ethernet ethernet(0, 0, 24, 24, kRes);
    ui::FlightMode flight(0, 0, 24, 24, kRes);
    ui::ApplicationUpdate update(30, 0, 24, 24, kRes);
    EXPECT_FALSE(flight.isVisible()); // off until the application says so
    const auto draw = [&](bool connected, bool flying, bool updating) {
        ethernet.setValue(connected);
        flight.setVisible(flying);
        update.setValue(updating);
        xui_host::clearTrace();
        for (ui::Widget* w : std::initializer_list<ui::Widget*>{&ethernet, &flight, &update})
            w->draw(ui::Xui::RootCanvas());
        return drawnPictures();
    };
    const std::string globe =
                          pictureOf("images/header/ethernet/ZEVA_12717_Ethernet_connection_globe_icon.png"),
                      plain = pictureOf("images/header/ethernet/ZEVA_12717_Ethernet_connection_icon.png");
    EXPECT_EQ(draw(true, false, false), (std::vector<std::string>{globe}));
    EXPECT_THAT(draw(false, true, true), testing::ElementsAre(plain, testing::_, testing::_));

    osal::host::setCapabilities(false, false);
    ui::Battery battery(0, 0, 24, 24, kRes);
    ui::Ethernet none(30, 0, 24, 24, kRes);
    EXPECT_FALSE(battery.isVisible() || none.isVisible());
    xui_host::clearTrace();
    battery.draw(ui::Xui::RootCanvas());
    none.draw(ui::Xui::RootCanvas());
    EXPECT_TRUE(drawnPictures().empty());
    ui::drawIcon(ui::Xui::RootCanvas());
    EXPECT_EQ(drawnPictures().size(), 1u);
}

TEST_F(HeaderTest, OfflineStore_ShowsTheCountUnderTheIcon) {
    // The count wraps at the widget's width, measured at the default size: "+99" needs 32.
    ui::OfflineTransactionStore store(10, 2, 32, 16, kRes);
    EXPECT_TRUE(drawnTexts(store).empty());
    EXPECT_TRUE(drawnPictures().empty());
    EXPECT_FALSE(store.isVisible());
    store.setValue(7);
    EXPECT_EQ(drawnTexts(store), (std::vector<std::string>{"7"}));
    const auto text = xui_host::trace("CanvasDrawText")[0].args;
    EXPECT_EQ(text[2] + " " + text[3], "18 10"); // under the icon, at half size
    store.setValue(99);
    EXPECT_EQ(drawnTexts(store), (std::vector<std::string>{"99"}));
    store.setValue(100);
    EXPECT_EQ(drawnTexts(store), (std::vector<std::string>{"+99"}));
}

TEST_F(HeaderTest, SignalStrength_SplitsPercentagesIntoEqualBands) {
    std::vector<ui::Image> bars;
    for (int i = 0; i < 5; ++i)
        bars.emplace_back(kRes + "images/header/signal/signal_" + std::to_string(i) + ".png", 200, 4, 0, 0);
    ui::SignalStrength signal({200, 4, 24, 24}, bars);
    const struct {
        unsigned percent, index;
    } table[] = {{0, 0}, {19, 0}, {20, 1}, {39, 1}, {40, 2}, {99, 4}, {100, 4}, {101, 0}, {4000000000u, 0}};
    for (const auto& row : table) {
        signal.setSignal(row.percent);
        EXPECT_EQ(signal.getSignal(), row.index) << row.percent << "%";
    }
    EXPECT_EQ(std::distance(signal.begin(), signal.end()), 5);
    ui::SignalStrength three({200, 4, 24, 24}, {bars[0], bars[1], bars[2]}); // bands of a hundredth each
    three.setSignal(33);
    EXPECT_EQ(three.getSignal(), 0u);
    EXPECT_THROW(ui::SignalStrength({0, 0, 1, 1}, {}), std::invalid_argument);
}

TEST_F(HeaderTest, Time_ReadsTheClockAtEachDraw) {
    osal::host::pinClock(k0905on7March2025);
    ui::Time clock(0, 0, 96, 20); // the date is measured at the default size: it needs 90
    EXPECT_EQ(drawnTexts(clock), (std::vector<std::string>{"09:05", "07/03/2025"}));
    osal::host::pinClock(k0905on7March2025 - 9 * 3600 - 5 * 60); // midnight
    EXPECT_EQ(drawnTexts(clock)[0], "00:00");
    EXPECT_EQ(format(2025) + format(-5) + format(10) + format(9), "20250-51009"); // two digits at least
    // Past 2038 the seconds no longer fit the terminal's 32-bit long (nor its time_t).
    osal::host::pinClock(2214172740); // 2040-02-29 23:59
    EXPECT_EQ(drawnTexts(clock), (std::vector<std::string>{"23:59", "29/02/2040"}));
    osal::host::pinClock(-100000LL * 365 * 86400); // far outside the calendar
    EXPECT_THROW(clock.draw(ui::Xui::RootCanvas()), std::out_of_range);
    osal::host::pinClock(k0905on7March2025);
    clock.setVisible(false);
    EXPECT_TRUE(drawnTexts(clock).empty());

    // Every clock shares one pair of labels, placed by the last one built.
    ui::Time second(150, 0, 96, 20);
    clock.setVisible(true);
    const auto calls = test::drawCalls(clock, "CanvasDrawText");
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].args[1], std::to_string(150 + 48 - ui::fonts::GetTextWidth("09:05") / 2));
}

// The whole status header, as a person sees it.
// Batteries keep the pictures of the first one built in the process: the picture is taken in
// a process of its own (a death test re-runs the binary for this test alone), whatever ran
// before it here.
TEST_F(HeaderTest, FullHeader_MatchesTheReviewedPicture) {
    EXPECT_EXIT(
        {
            ui::kit::TerminalOptions options;
            options.clock = k0905on7March2025;
            options.statusHeader = true;
            ui::kit::Terminal terminal(options);
            terminal.show(std::make_shared<app::Screen>());
            app::StatusHeader& header = terminal.header();
            header.setOfflineCount(7);
            header.setUpdateAvailable(true);
            header.setSignal(80);
            header.setEthernet(true);
            header.setFlightMode(true);
            header.setBattery(3);
            auto screen = terminal.screen();
            screen.argb.resize(size_t(screen.width) * 32);
            screen.height = 32;
            const auto matches = ui::kit::matchesGolden(screen, "header.png");
            std::fprintf(stderr, "%s\n", matches.message());
            std::_Exit(matches ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
}

} // namespace
