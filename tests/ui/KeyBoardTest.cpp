#include "Support.hpp"

#include "ui/KeyBoard.hpp"
#include "ui/Xui.hpp"

namespace {

using KeyBoardTest = test::PlatformTest;
using device::input::Key;

TEST_F(KeyBoardTest, Construction_RegistersTheLatest) {
    ui::input::KeyBoard keyboard;
    EXPECT_EQ(ui::ServiceLocator::getInputService(), &keyboard);
    ui::input::KeyBoard second;
    EXPECT_EQ(ui::ServiceLocator::getInputService(), &second);
}

TEST_F(KeyBoardTest, KeysBeforeBindAreDiscarded_ThenDelivered) {
    ui::input::KeyBoard keyboard;
    xui_host::pushKey('3');
    ASSERT_TRUE(xui_host::waitForKeysHandled(std::chrono::seconds(5)));
    std::mutex m;
    std::vector<Key> got;
    keyboard.bind([&](Key k) {
        if (k == device::input::KEY_NONE)
            return;
        std::lock_guard<std::mutex> lock(m);
        got.push_back(k);
    });
    xui_host::pushKey('4');
    ASSERT_TRUE(test::eventually([&] {
        std::lock_guard<std::mutex> lock(m);
        return !got.empty();
    }));
    EXPECT_EQ(got, (std::vector<Key>{device::input::KEY_4}));
}

TEST_F(KeyBoardTest, RebindingWhileKeysArrive_EachKeyGoesToExactlyOneHandler) {
    ui::input::KeyBoard keyboard;
    std::atomic<int> first{0}, second{0};
    keyboard.bind([&](Key k) { first += k == device::input::KEY_5; });
    for (int i = 0; i < 50; ++i)
        xui_host::pushKey('5');
    keyboard.bind([&](Key k) { second += k == device::input::KEY_5; });
    ASSERT_TRUE(test::eventually([] { return xui_host::keysRead() == 50; }));
    keyboard.bind(nullptr); // waits for a handler in progress
    EXPECT_EQ(first.load() + second.load(), 50);
}

TEST_F(KeyBoardTest, ClosingTheDisplayEndsTheThreadByItself) {
    const int threads = test::settledThreadCount();
    auto keyboard = std::make_unique<ui::input::KeyBoard>();
    EXPECT_TRUE(test::eventually([&] { return test::threadCount() == threads + 1; }));
    xui_host::setKeyWaitLimit(std::chrono::milliseconds(0)); // only a close can end the wait
    XuiClose();
    EXPECT_TRUE(test::eventually([&] { return test::threadCount() == threads; }));
    keyboard.reset();
}

} // namespace
