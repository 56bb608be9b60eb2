#include "Support.hpp"

#include "ui/ContactlessStatusIndicator.hpp"
#include "ui/GraphicsDevice.hpp"
#include "ui/Label.hpp"
#include "ui/Window.hpp"
#include "ui/Xui.hpp"

#include <future>

namespace {

using std::chrono::seconds;

class GraphicsDeviceTest : public test::DeviceTest {
protected:
    void SetUp() override {
        DeviceTest::SetUp();
        xui_host::clearTrace();
    }

    std::shared_ptr<ui::Window> withWindow() {
        auto window = std::make_shared<ui::Window>(device->getScreenWidth(), device->getScreenHeight());
        device->setWindow(window);
        return window;
    }
    // Requests a draw and waits until its frame is presented.
    void updateAndWait() {
        const auto frames = xui_host::framesShown();
        device->update();
        ASSERT_TRUE(xui_host::waitForFrames(frames + 1, seconds(5)));
        device->waitForDraw();
    }
};

TEST_F(GraphicsDeviceTest, Construction_OrderOfXuiCalls) {
    device.reset();
    xui_host::reset();
    xui_host::setTracing(true);
    device = std::make_unique<ui::GraphicsDevice>(GraphicsDeviceParams{12345678, 24});
    // Each call with the canvas it is about; canvases are named in creation order (c3 to c6).
    std::string sequence;
    for (const auto& c : xui_host::trace())
        sequence +=
            c.function == "ShowWindow"
                ? c.str() + "; "
                : c.function +
                      (c.function == "Open" || c.function == "CreateCanvas" ? "; " : " " + c.args[0] + "; ");
    EXPECT_EQ(sequence, "Open; CreateCanvas; CreateCanvas; CanvasSetBackground c3; CanvasSetBackground c4; "
                        "CreateCanvas; CreateCanvas; CanvasSetBackground c5; CanvasSetBackground c6; "
                        "ShowWindow(c4, 1, 0); ShowWindow(c5, 1, 0); ");
    // Each argument is cut to 14 characters and its terminator.
    EXPECT_EQ(xui_host::trace("Open")[0].str(), "Open(\"ROTATE=1234567\", \"STATUSBAR=24\")");
    auto creates = xui_host::trace("CreateCanvas");
    EXPECT_EQ(creates[0].str(), "CreateCanvas(root, 0, 0, 320, 216)");
    EXPECT_EQ(creates[2].str(), "CreateCanvas(statusbar, 0, 0, 320, 24)");
    // The sizes are published, and the device is the graphics service.
    EXPECT_EQ(
        std::vector<int>({GetMainCanvasWidth(), GetMainCanvasHeight(), GetHeaderWidth(), GetHeaderHeight()}),
        std::vector<int>({320, 216, 320, 24}));
    EXPECT_EQ(ui::ServiceLocator::getGraphicsService(), device.get());
}

// In a process of its own: a device publishes the sizes for the process, and until one has, every
// size is 0.
TEST(GraphicsDeviceSizesTest, BeforeAnyDeviceTheCanvasesHaveNoSize) {
    EXPECT_EXIT(
        std::_Exit(GetMainCanvasWidth() || GetMainCanvasHeight() || GetHeaderWidth() || GetHeaderHeight()),
        ::testing::ExitedWithCode(0), "");
}

TEST_F(GraphicsDeviceTest, Update_DrawsIntoTheHiddenCanvasAndExchanges) {
    auto window = withWindow();
    auto view = std::make_shared<test::View>();
    auto label = std::make_shared<ui::Label>(10, 10, 200, 20);
    label->setText("Sale");
    view->add(label);
    device->setContext(view);
    _XuiWindow* back = device->getRootCanvas();
    const std::string backName = xui_host::nameOf(back);
    xui_host::clearTrace();

    updateAndWait();
    const std::string next = xui_host::nameOf(device->getRootCanvas()); // the other canvas
    EXPECT_NE(next, backName);
    auto t = xui_host::trace();
    ASSERT_GE(t.size(), 4u);
    EXPECT_EQ(t[0].function + " " + t[0].args[0] + "; " + t[1].str() + "; " + t[2].str() + "; " + t[3].str(),
              "CanvasDrawText " + backName + "; ShowWindow(" + backName + ", 1, 0); ShowWindow(" + next +
                  ", 0, 0); ClearArea(" + next + ", 0, 0, 320, 216)");
    EXPECT_EQ(view->draws.load(), 1);
    device->injectKeyPress(device::input::KEY_5); // to the view, on the caller's thread
    EXPECT_EQ(view->receivedKeys(), std::vector<device::input::Key>{device::input::KEY_5});
}

TEST_F(GraphicsDeviceTest, Update_WithoutWindowOrView_DrawsNothing) {
    const auto frames = xui_host::framesShown();
    device->update();
    device->waitForDraw();
    withWindow();
    device->update();
    ASSERT_TRUE(osal::host::waitUntilSettled(seconds(5))); // the rendering thread is back in its wait
    EXPECT_EQ(xui_host::framesShown(), frames);
    EXPECT_TRUE(xui_host::trace("ShowWindow").empty());
}

TEST_F(GraphicsDeviceTest, Update_RequestsDuringADrawCollapseIntoOneMore) {
    withWindow();
    auto view = std::make_shared<test::View>();
    std::promise<void> open;
    std::atomic<bool> entered{false}, firstDrawn{false};
    view->onDraw = [&, gate = open.get_future().share()](_XuiWindow*) {
        if (!entered.exchange(true)) {
            gate.wait(); // the first draw waits for the gate
            firstDrawn = true;
        }
    };
    device->setContext(view);
    device->update();
    ASSERT_TRUE(test::eventually([&] { return entered.load(); }));
    for (int i = 0; i < 10; ++i)
        device->update();
    std::thread opener([&] { open.set_value(); }); // while this thread waits for the draw
    device->waitForDraw();
    EXPECT_TRUE(firstDrawn.load()); // waited for the draw in progress
    opener.join();
    ASSERT_TRUE(test::eventually([&] { return view->draws.load() >= 2; }));
    device->waitForDraw();
    EXPECT_EQ(view->draws.load(), 2);
    updateAndWait(); // and the device still answers
    EXPECT_EQ(view->draws.load(), 3);
    device.reset(); // its last draw must not outlive the hooks' captures
}

TEST_F(GraphicsDeviceTest, UpdateHeader_DrawsHeaderThenIndicator_AndExchangesHeaderCanvases) {
    auto window = withWindow();
    struct Indicator : ui::ContactlessStatusIndicator {
        Indicator() : ContactlessStatusIndicator(200, 2, 100, 20) {}
        void draw(_XuiWindow* canvas) override {
            ui::Xui::CanvasDrawRect(canvas, 200, 2, 100, 20, 0xFF00FF00u, 0, 1);
        }
    };
    auto header = std::make_shared<test::View>();
    header->onDraw = [](_XuiWindow* c) { ui::Xui::CanvasDrawRect(c, 0, 0, 10, 10, 0xFFFF0000u, 0, 1); };

    // Neither: nothing drawn, the header canvases are still exchanged.
    device->updateHeader();
    auto shows = xui_host::trace("ShowWindow");
    ASSERT_EQ(shows.size(), 2u);
    EXPECT_TRUE(xui_host::trace("CanvasDrawRect").empty());
    const std::string firstHeader = shows[1].args[0]; // hidden now, drawn into next
    xui_host::clearTrace();

    // Header and indicator: the indicator is painted over the header.
    window->setContactlessStatusIndicator(std::make_shared<Indicator>());
    window->setHeader(header);
    device->updateHeader();
    const auto rects = calls("CanvasDrawRect");
    ASSERT_EQ(rects.size(), 2u);
    EXPECT_EQ(rects[0], "CanvasDrawRect(" + firstHeader + ", 0, 0, 10, 10, 0xffff0000, 0, 1)");
    EXPECT_EQ(rects[1], "CanvasDrawRect(" + firstHeader + ", 200, 2, 100, 20, 0xff00ff00, 0, 1)");
    auto strip = xui_host::screen();
    EXPECT_EQ(strip.at(5, 5), 0xFFFF0000u);
    EXPECT_EQ(strip.at(250, 10), 0xFF00FF00u);
}

TEST_F(GraphicsDeviceTest, Render_DrawsOneWidgetAndPresents) {
    struct Box : ui::Widget {
        Box() : Widget(5, 5, 10, 10) {}
        void draw(_XuiWindow* c) override { ui::Xui::CanvasDrawRect(c, 5, 5, 10, 10, 0xFF0000FFu, 0, 1); }
    } box;
    _XuiWindow* back = device->getRootCanvas();
    device->render(&box);
    EXPECT_EQ(calls("CanvasDrawRect")[0].rfind("CanvasDrawRect(" + xui_host::nameOf(back), 0), 0u);
    EXPECT_EQ(xui_host::screen().at(7, 24 + 7), 0xFF0000FFu);
    EXPECT_NE(device->getRootCanvas(), back);
    back = device->getRootCanvas();
    device->render(nullptr); // nothing to draw: nothing presented
    EXPECT_EQ(device->getRootCanvas(), back);
}

TEST_F(GraphicsDeviceTest, ReInitializeFrameBuffers_AppliesTheBrandingColours_AndRedrawsBoth) {
    auto window = withWindow();
    auto view = std::make_shared<test::View>(), header = std::make_shared<test::View>();
    device->setContext(view);
    window->setHeader(header);
    device->waitForDraw();
    const int viewDraws = view->draws, headerDraws = header->draws;
    osal::host::setColor(resource::BRAND_MAIN_BACKGROUND, 0x123456FFu);
    device->reInitializeFrameBuffers();
    auto backgrounds = calls("CanvasSetBackground");
    ASSERT_EQ(backgrounds.size(), 4u);
    EXPECT_NE(backgrounds[0].find("0xff123456"), std::string::npos);
    EXPECT_EQ(header->draws, headerDraws + 1); // the header is redrawn at once
    ASSERT_TRUE(test::eventually([&] { return view->draws > viewDraws; }));
    device->waitForDraw();
    EXPECT_EQ(xui_host::screen().at(100, 100), 0xFF123456u);
}

TEST_F(GraphicsDeviceTest, Destruction_StopsTheThreadAndClosesXui) {
    const int threads = test::settledThreadCount();
    withWindow();
    device.reset();
    EXPECT_TRUE(test::eventually([&] { return test::threadCount() == threads - 1; }));
    auto t = xui_host::trace();
    std::string last;
    for (size_t i = t.size() - std::min<size_t>(t.size(), 9); i < t.size(); ++i)
        last += (t[i].function == "ClearArea" ? t[i].str() : t[i].function) + "; ";
    EXPECT_EQ(last,
              "ClearArea(c3, 0, 0, 320, 216); ClearArea(c4, 0, 0, 320, 216); ClearArea(c5, 0, 0, 320, 24); "
              "ClearArea(c6, 0, 0, 320, 24); DestroyWindow; DestroyWindow; DestroyWindow; DestroyWindow; "
              "Close; ");
    EXPECT_FALSE(XuiIsRunning());
}

// Every operation of a device that has nothing to draw into: it must neither crash nor draw.
void exerciseEveryOperation(ui::GraphicsDevice& device) {
    auto window = std::make_shared<ui::Window>(320, 216);
    auto view = std::make_shared<test::View>();
    device.setWindow(window);
    device.setContext(view);
    window->setHeader(std::make_shared<test::View>());
    device.update();
    device.updateHeader();
    device.render(view.get());
    device.render(nullptr);
    device.injectKeyPress(device::input::KEY_1);
    device.reInitializeFrameBuffers();
    device.waitForDraw();
    device.reset();
    EXPECT_EQ(device.getContext(), nullptr);
    EXPECT_EQ(device.getScreenWidth() + device.getScreenHeight(), 0u);
    device.update(); // the rendering thread wakes with nothing to draw into
    device.waitForDraw();
}

TEST_F(GraphicsDeviceTest, ADisplayThatDoesNotOpen_LeavesADeviceThatDrawsNothing) {
    device.reset();
    xui_host::failNextOpen();
    ui::GraphicsDevice closed(GraphicsDeviceParams{0, 24});
    EXPECT_FALSE(XuiIsRunning());
    EXPECT_EQ(closed.getRootCanvas(), nullptr);
    xui_host::clearTrace();
    exerciseEveryOperation(closed);
    for (const auto& call : xui_host::trace())
        EXPECT_NE(call.function, "ShowWindow") << "presented on a closed display";
}

// A status bar that leaves no room, or a canvas Xui cannot make: nothing is ever asked of a
// canvas that was not made.
TEST_F(GraphicsDeviceTest, CanvasesThatCannotBeMade_LeaveADeviceThatDrawsNothing) {
    device.reset();
    xui_host::setTracing(true);
    // A status bar and, for one that leaves room, which canvas fails: the second of each pair.
    for (const auto& [statusbar, failing] :
         std::vector<std::pair<int, int>>{{-1, -1}, {240, -1}, {12345, -1}, {24, 1}, {24, 3}}) {
        XuiClose();
        if (failing >= 0)
            xui_host::failCanvasCreation(unsigned(failing));
        xui_host::clearTrace();
        ui::GraphicsDevice squeezed(GraphicsDeviceParams{0, statusbar});
        EXPECT_EQ(squeezed.getRootCanvas(), nullptr) << statusbar;
        // The canvases made before one failed are let go at once.
        EXPECT_EQ(xui_host::trace("DestroyWindow").size(),
                  xui_host::trace("CreateCanvas").size() - (failing >= 0))
            << statusbar;
        if (statusbar == 12345) { // cut to 14 characters, as a rotation is
            EXPECT_EQ(xui_host::trace("Open").at(0).args.at(1), "\"STATUSBAR=1234\"");
        }
        exerciseEveryOperation(squeezed);
        for (const auto& call : xui_host::trace()) // a canvas not made is never asked for anything
            EXPECT_TRUE(call.args.empty() || call.args[0] != "null") << call.str();
    }
    EXPECT_THAT(log(), testing::Contains(testing::HasSubstr("cannot create the canvases for a status bar of "
                                                            "12345 pixels")));
}

TEST_F(GraphicsDeviceTest, XuiClosedBehindTheDevice_NothingIsPresentedOnFreedCanvases) {
    auto window = withWindow();
    auto view = std::make_shared<test::View>();
    device->setContext(view);
    updateAndWait();
    XuiClose(); // someone else closes the display: its canvases go with it
    xui_host::clearTrace();
    device->update();
    device->updateHeader();
    device->render(view.get());
    device->waitForDraw();
    device.reset(); // and the teardown skips them too
    for (const auto& call : xui_host::trace())
        EXPECT_TRUE(call.function == "Close" || call.function == "IsRunning") << call.str();
}

} // namespace
