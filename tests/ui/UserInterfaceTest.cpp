#include "Support.hpp"

#include "ui/Header.hpp"

#include <boost/exception/exception.hpp>

#include "ui/ContactlessStatusIndicator.hpp"
#include "ui/KeyBoard.hpp"
#include "ui/UserInterface.hpp"
#include "ui/Window.hpp"
#include "ui/Xui.hpp"

namespace {

class UserInterfaceTest : public test::PlatformTest {
protected:
    UserInterfaceTest() { openDisplay = false; }
};

TEST_F(UserInterfaceTest, StartsAndStopsInOrder_LeavingNoThread) {
    const int threads = test::settledThreadCount();
    {
        ui::UserInterface ui(GraphicsDeviceParams{0, 24});
        EXPECT_TRUE(test::eventually([&] { return test::threadCount() == threads + 1; })); // rendering
        const auto size = ui.screenSize();
        EXPECT_EQ(std::vector<unsigned>({size.x, size.y, size.width, size.height}),
                  std::vector<unsigned>({0, 0, 320, 216}));

        ui.initialize();
        EXPECT_TRUE(test::eventually([&] { return test::threadCount() == threads + 2; })); // and keypad
        ui::IGraphics* graphics = ui::ServiceLocator::getGraphicsService();
        ASSERT_NE(graphics, nullptr);
        ASSERT_NE(graphics->getWindow(), nullptr);
        EXPECT_NE(ui::ServiceLocator::getInputService(), nullptr);

        // Keys reach the view set through the graphics service; after a second initialize
        // (a second keypad and window, the first window gone) only the new window's view.
        auto view = std::make_shared<test::View>();
        graphics->setContext(view);
        xui_host::pushKey('9');
        ASSERT_TRUE(view->waitForKeys(1));
        ui.initialize();
        auto second = std::make_shared<test::View>();
        graphics->setContext(second);
        xui_host::pushKey('7');
        ASSERT_TRUE(second->waitForKeys(1));
        EXPECT_EQ(view->receivedKeys().size(), 1u);
        xui_host::clearTrace();
    }
    EXPECT_TRUE(test::eventually([&] { return test::threadCount() == threads; }));
    EXPECT_FALSE(XuiIsRunning());
    auto t = xui_host::trace();
    ASSERT_FALSE(t.empty());
    EXPECT_EQ(t.back().function, "Close");
}

TEST_F(UserInterfaceTest, TeardownStopsTheKeypadBeforeTheDisplay) {
    auto ui = std::make_unique<ui::UserInterface>(GraphicsDeviceParams{0, 24});
    ui->initialize();
    auto view = std::make_shared<test::View>();
    std::atomic<bool> handling{false};
    std::atomic<int> displayOpenAfterwards{-1};
    view->onKey = [&](device::input::Key) {
        handling = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(200)); // teardown starts meanwhile
        displayOpenAfterwards = XuiIsRunning();
    };
    ui::ServiceLocator::getGraphicsService()->setContext(view);
    xui_host::pushKey('1');
    ASSERT_TRUE(test::eventually([&] { return handling.load(); }));
    ui.reset(); // waits for the key being handled before the display goes
    EXPECT_EQ(displayOpenAfterwards, 1);
}

// Without an open display (it did not open, or closed under it) the facade has no size, refuses
// the keypad, ignores the indicator, and tears down leaving no thread; so does one never
// initialised.
TEST_F(UserInterfaceTest, WithoutADisplayItRefusesTheKeypad_AndEveryTeardownIsClean) {
    const int threads = test::settledThreadCount();
    { ui::UserInterface ui(GraphicsDeviceParams{0, 24}); }
    EXPECT_TRUE(test::eventually([&] { return test::threadCount() == threads; }));
    EXPECT_FALSE(XuiIsRunning());
    for (bool opens : {false, true}) {
        if (!opens)
            xui_host::failNextOpen();
        ui::UserInterface ui(GraphicsDeviceParams{0, 24});
        XuiClose();
        EXPECT_THAT([&] { ui.initialize(); }, ThrowsMessage<XuiException>(StrEq("Xui is not running")));
        EXPECT_EQ(ui.screenSize().width + ui.screenSize().height, 0u);
        ui.enableContactless({0, 0, 100, 24}, {}); // no window: ignored
    }
    EXPECT_TRUE(test::eventually([&] { return test::threadCount() == threads; }));
}

// What goes wrong in an application's code is logged where it happens, and every thread of
// the library goes on: the next key still arrives, the next frame is still presented.
TEST_F(UserInterfaceTest, FaultsInViewsHandlersAndTheClock_AreLogged_AndEveryThreadGoesOn) {
    struct BoostFault : boost::exception {};
    ui::UserInterface ui(GraphicsDeviceParams{0, 32});
    ui.initialize();
    ui::IGraphics* graphics = ui::ServiceLocator::getGraphicsService();
    auto view = std::make_shared<test::View>();
    int draws = 0;
    view->onDraw = [&](_XuiWindow*) {
        switch (draws++) {
        case 0:
            throw std::runtime_error("view failed");
        case 1:
            throw BoostFault();
        case 2:
            throw 7;
        }
    };
    view->onKey = [](device::input::Key key) {
        if (key == device::input::KEY_1)
            throw std::runtime_error("handler failed");
        if (key == device::input::KEY_2)
            throw BoostFault();
        if (key == device::input::KEY_3)
            throw 7;
    };
    graphics->setContext(view);
    for (int i = 0; i < 4; ++i) {
        const auto frames = xui_host::framesShown();
        graphics->update();
        if (i == 3) // three failed draws, then one that presents
            ASSERT_TRUE(xui_host::waitForFrames(frames + 1, std::chrono::seconds(5)));
        else
            ASSERT_TRUE(
                test::eventually([&] { return int(osal::host::exceptionReports().size()) == i + 1; }));
    }
    for (char key : {'1', '2', '3', '4'})
        xui_host::pushKey(key);
    ASSERT_TRUE(view->waitForKeys(4));
    ASSERT_TRUE(test::eventually([] { return osal::host::exceptionReports().size() == 6; }));
    const auto reports = osal::host::exceptionReports();
    std::vector<std::string> where;
    for (const auto& r : reports)
        where.push_back(r.source + (r.source == "KeyBoard" ? ":" + std::to_string(r.line) : ""));
    EXPECT_EQ(where, (std::vector<std::string>{"GraphicsDevice", "GraphicsDevice", "GraphicsDevice",
                                               "KeyBoard:106", "KeyBoard:102", "KeyBoard:110"}));

    // A clock outside the calendar fails the header redraw that asked for it, and only that.
    auto header = std::make_shared<test::View>();
    header->add(std::make_shared<ui::Time>(70, 0, 96, 20));
    graphics->getWindow()->setHeader(header);
    osal::host::pinClock(-100000LL * 365 * 86400);
    EXPECT_THROW(graphics->updateHeader(), std::out_of_range);
    osal::host::pinClock(0);
    EXPECT_NO_THROW(graphics->updateHeader());
    const auto frames = xui_host::framesShown();
    graphics->update();
    EXPECT_TRUE(xui_host::waitForFrames(frames + 1, std::chrono::seconds(5)));
}

} // namespace
