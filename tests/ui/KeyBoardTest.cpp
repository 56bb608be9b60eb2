#include "Support.hpp"

#include "ui/KeyBoard.hpp"
#include "ui/Xui.hpp"

namespace {

using KeyBoardTest = test::PlatformTest;
using device::input::Key;

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
