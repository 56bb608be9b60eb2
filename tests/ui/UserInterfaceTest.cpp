#include "Support.hpp"

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

TEST_F(UserInterfaceTest, Version) {
    EXPECT_EQ(getUserInterfaceVersion(), "1.2.1.0");
}

TEST_F(UserInterfaceTest, StartsAndStopsInOrder_LeavingNoThread) {
    const int threads = test::threadCount();
    {
        ui::UserInterface ui(GraphicsDeviceParams{0, 24});
        EXPECT_TRUE(
            test::eventually([&] { return test::threadCount() == threads + 1; })); // the rendering thread
        auto size = ui.screenSize();
        EXPECT_EQ(size.x, 0u);
        EXPECT_EQ(size.y, 0u);
        EXPECT_EQ(size.width, 320u);
        EXPECT_EQ(size.height, 216u);

        ui.initialize();
        EXPECT_TRUE(
            test::eventually([&] { return test::threadCount() == threads + 2; })); // and the keypad thread
        ui::IGraphics* graphics = ui::ServiceLocator::getGraphicsService();
        ASSERT_NE(graphics, nullptr);
        ASSERT_NE(graphics->getWindow(), nullptr);
        EXPECT_NE(ui::ServiceLocator::getInputService(), nullptr);

        // Keys reach the view set through the graphics service.
        auto view = std::make_shared<test::View>();
        graphics->setContext(view);
        xui_host::pushKey('9');
        ASSERT_TRUE(view->waitForKeys(1));
        xui_host::clearTrace();
    }
    EXPECT_TRUE(test::eventually([&] { return test::threadCount() == threads; }));
    EXPECT_FALSE(XuiIsRunning());
    auto t = xui_host::trace();
    ASSERT_FALSE(t.empty());
    EXPECT_EQ(t.back().function, "Close");
}

TEST_F(UserInterfaceTest, TeardownWithoutInitialize_ClosesCleanly) {
    const int threads = test::threadCount();
    { ui::UserInterface ui(GraphicsDeviceParams{0, 24}); }
    EXPECT_TRUE(test::eventually([&] { return test::threadCount() == threads; }));
    EXPECT_FALSE(XuiIsRunning());
}

TEST_F(UserInterfaceTest, InitializeOnAClosedDisplayThrows) {
    ui::UserInterface ui(GraphicsDeviceParams{0, 24});
    XuiClose();
    EXPECT_THROW(ui.initialize(), XuiException);
    auto size = ui.screenSize();
    EXPECT_EQ(size.width, 0u);
}

TEST_F(UserInterfaceTest, ContactlessChangesBeforeAnIndicatorDoNothing) {
    ui::ServiceLocator::updateContactlessIndicator(ui::State::Ready);
    ui::ContactlessStatusIndicator indicator(0, 0, 10, 10);
    ui::ServiceLocator::addContactlessStatusIndicator(&indicator);
    ui::ServiceLocator::updateContactlessIndicator(ui::State::Ready);
    EXPECT_EQ(indicator.getState(), ui::State::Ready);
    ui::ServiceLocator::addContactlessStatusIndicator(nullptr);
}

TEST_F(UserInterfaceTest, ADisplayThatDoesNotOpen_RefusesTheKeypad_AndTearsDownCleanly) {
    const int threads = test::threadCount();
    {
        xui_host::failNextOpen();
        ui::UserInterface ui(GraphicsDeviceParams{0, 24});
        const auto size = ui.screenSize();
        EXPECT_EQ(size.width, 0u);
        EXPECT_EQ(size.height, 0u);
        try {
            ui.initialize();
            FAIL() << "a keypad without a display";
        } catch (const XuiException& e) {
            EXPECT_STREQ(e.what(), "Xui is not running");
        }
        ui.enableContactless({0, 0, 100, 24}, {}); // no window: ignored
    }
    EXPECT_TRUE(test::eventually([&] { return test::threadCount() == threads; }));
}

TEST_F(UserInterfaceTest, ASecondInitialize_SendsKeysToTheNewWindowOnly) {
    ui::UserInterface ui(GraphicsDeviceParams{0, 24});
    ui.initialize();
    ui::IGraphics* graphics = ui::ServiceLocator::getGraphicsService();
    auto first = std::make_shared<test::View>();
    graphics->setContext(first);
    ui.initialize(); // a second keypad and window; the first window goes
    auto second = std::make_shared<test::View>();
    graphics->setContext(second);
    xui_host::pushKey('7');
    ASSERT_TRUE(second->waitForKeys(1));
    EXPECT_TRUE(first->receivedKeys().empty());
}

} // namespace
