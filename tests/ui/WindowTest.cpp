#include "Support.hpp"

#include <future>

#include "ui/ContactlessStatusIndicator.hpp"
#include "ui/KeyBoard.hpp"
#include "ui/Window.hpp"

namespace {

using WindowTest = test::PlatformTest;
using device::input::KEY_1;
using device::input::KEY_2;

// Without a view a window draws nothing (false) and drops keys; its header update is always
// true and draws the indicator set.
TEST_F(WindowTest, WithoutAViewNothingIsDrawnOrDelivered_WithOneItIs) {
    ui::Window window(320, 216);
    EXPECT_FALSE(window.draw(nullptr));
    window.injectKeyPress(KEY_1);
    auto view = std::make_shared<test::View>();
    window.setView(view);
    EXPECT_TRUE(window.draw(nullptr));
    EXPECT_EQ(view->draws.load(), 1);
    window.injectKeyPress(KEY_2);
    EXPECT_EQ(view->receivedKeys(), (std::vector<device::input::Key>{KEY_2}));

    EXPECT_TRUE(window.updateHeader(nullptr));
    struct Indicator : ui::ContactlessStatusIndicator {
        Indicator() : ContactlessStatusIndicator(0, 0, 10, 10) {}
        void draw(_XuiWindow*) override { ++draws; }
        int draws = 0;
    };
    auto indicator = std::make_shared<Indicator>();
    window.setContactlessStatusIndicator(indicator);
    EXPECT_TRUE(window.updateHeader(nullptr));
    EXPECT_EQ(indicator->draws, 1);
}

TEST_F(WindowTest, SetView_ReleasesTheOldViewFirst) {
    ui::Window window(320, 216);
    // A view that, as it goes, looks at what the window holds.
    struct Watched : test::View {
        Watched(ui::Window& w, bool& empty) : window(w), emptyWhenDestroyed(empty) {}
        ~Watched() override { emptyWhenDestroyed = window.getView() == nullptr; }
        ui::Window& window;
        bool& emptyWhenDestroyed;
    };
    bool empty = false;
    window.setView(std::make_shared<Watched>(window, empty));
    window.setView(std::make_shared<test::View>());
    EXPECT_TRUE(empty); // released before the new one was stored
}

// The window goes releasing its indicator, then its view, then its header.
TEST_F(WindowTest, DestructionReleasesTheIndicatorThenTheViewThenTheHeader) {
    struct Going : test::View {
        std::function<void()> onGone;
        ~Going() override { onGone(); }
    };
    std::vector<std::string> gone;
    auto window = std::make_unique<ui::Window>(320, 216);
    auto indicator = std::make_shared<ui::ContactlessStatusIndicator>(0, 0, 100, 24);
    std::weak_ptr<ui::ContactlessStatusIndicator> indicatorLeft = indicator;
    auto view = std::make_shared<Going>(), header = std::make_shared<Going>();
    view->onGone = [&] { gone.push_back(indicatorLeft.expired() ? "view after indicator" : "view first"); };
    header->onGone = [&] { gone.push_back("header"); };
    window->setContactlessStatusIndicator(indicator);
    window->setView(view);
    window->setHeader(header);
    indicator.reset();
    view.reset();
    header.reset();
    window.reset();
    EXPECT_EQ(gone, (std::vector<std::string>{"view after indicator", "header"}));
}

TEST_F(WindowTest, AViewReplacingItselfFromItsKeyHandlerSurvivesTheCall_NoWindowLockHeld) {
    ui::Window window(320, 216);
    auto first = std::make_shared<test::View>();
    std::weak_ptr<test::View> watch = first;
    bool aliveDuringHandler = false;
    bool otherThreadGotIn = false;
    first->onKey = [&](device::input::Key) {
        // The locks are recursive, so only another thread can tell that none is held.
        auto other = std::async(std::launch::async, [&] { return window.draw(nullptr); });
        otherThreadGotIn = other.wait_for(std::chrono::seconds(5)) == std::future_status::ready;
        window.setView(std::make_shared<test::View>());
        aliveDuringHandler = !watch.expired();
    };
    window.setView(first);
    first.reset();
    window.injectKeyPress(KEY_1);
    EXPECT_TRUE(otherThreadGotIn);
    EXPECT_TRUE(aliveDuringHandler);
    EXPECT_TRUE(watch.expired()); // gone once its handler returned
    EXPECT_NE(window.getView(), nullptr);
}

// Keys reach the view on the keypad's thread, through a window made after the keypad and still
// there: a window that goes unbinds the keypad, and the next one binds it again.
TEST_F(WindowTest, KeysReachTheViewOnTheKeypadThread_OnlyThroughAWindowBoundToIt) {
    auto view = std::make_shared<test::View>();
    ui::Window early(320, 216); // before the keypad: never bound
    early.setView(view);
    auto keyboard = std::make_shared<ui::input::KeyBoard>();
    xui_host::pushKey('1');
    ASSERT_TRUE(xui_host::waitForKeysHandled(std::chrono::seconds(5)));
    {
        ui::Window gone(320, 216);
        gone.setView(view);
    }
    xui_host::pushKey('2');
    ASSERT_TRUE(xui_host::waitForKeysHandled(std::chrono::seconds(5)));
    ui::Window current(320, 216);
    current.setView(view);
    xui_host::pushKey('1');
    xui_host::pushKey(XUI_KEY_ENTER);
    ASSERT_TRUE(view->waitForKeys(2));
    keyboard.reset();
    EXPECT_EQ(view->receivedKeys(), (std::vector<device::input::Key>{KEY_1, device::input::KEY_ENTER}));
    EXPECT_NE(view->keyThread, std::this_thread::get_id());
}

TEST_F(WindowTest, AViewReplacingItselfWhileItDrawsLivesUntilItsDrawReturns) {
    ui::Window window(320, 216);
    auto first = std::make_shared<test::View>();
    std::weak_ptr<test::View> watch = first;
    bool aliveAfterReplacing = false;
    first->onDraw = [&](_XuiWindow*) {
        window.setView(std::make_shared<test::View>());
        aliveAfterReplacing = !watch.expired();
    };
    window.setView(first);
    first.reset();
    EXPECT_TRUE(window.draw(nullptr)); // the view goes on drawing its children after replacing itself
    EXPECT_TRUE(aliveAfterReplacing);
    EXPECT_TRUE(watch.expired());
}

} // namespace
