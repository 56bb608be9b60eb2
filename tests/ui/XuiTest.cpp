#include "Support.hpp"

#include "ui/Xui.hpp"

#include <thread>

namespace {

using XuiWrapper = test::PlatformTest;

TEST_F(XuiWrapper, RgbaToImg_IsAlwaysNullAndCallsNothing) {
    xui_host::clearTrace();
    char buffer[16] = {};
    EXPECT_EQ(ui::Xui::RgbaToImg(buffer, 2, 2, 0), nullptr);
    EXPECT_TRUE(xui_host::trace().empty());
}

TEST_F(XuiWrapper, Fonts_GetFontCreatesOnce_LoadFontEveryTime) {
    xui_host::clearTrace();
    _XuiFont* first = ui::fonts::getFont();
    EXPECT_EQ(ui::fonts::getFont(), first);
    const auto created = calls("CreateFont").size();
    EXPECT_LE(created, 1u); // none when an earlier test already created it

    _XuiFont* a = ui::fonts::loadFont();
    _XuiFont* b = ui::fonts::loadFont();
    EXPECT_NE(a, b);
    EXPECT_EQ(ui::fonts::getFont(), b);
    EXPECT_EQ(calls("CreateFont").size(), created + 2);
    EXPECT_EQ(calls("CreateFont").back(), "CreateFont(\"./res/Carlito-Regular.ttf\", 0, 0)");
}

TEST_F(XuiWrapper, Colours_BecomeOpaqueXuiColours) {
    EXPECT_EQ(ui::fonts::intToXuiColor(0x11223344u), 0xFF112233u);
    EXPECT_EQ(ui::fonts::intToXuiColor(0u), 0xFF000000u);
    EXPECT_EQ(ui::fonts::intToXuiColor(0xFFFFFF00u), 0xFFFFFFFFu);
}

TEST_F(XuiWrapper, TextWidth_DefaultsToTwentyPixels) {
    EXPECT_EQ(ui::fonts::getFontSize(), 20u);
    EXPECT_EQ(ui::fonts::GetTextWidth("Payment"), ui::fonts::GetTextWidth("Payment", 20));
    EXPECT_GT(ui::fonts::GetTextWidth("Payment", 40), ui::fonts::GetTextWidth("Payment"));
}

TEST_F(XuiWrapper, Calls_AreSerialisedButGetKeyIsNot) {
    // A key wait must not hold the lock: drawing goes on meanwhile.
    xui_host::setKeyWaitLimit(std::chrono::milliseconds(0));
    std::thread reader([] { EXPECT_EQ(ui::Xui::GetKey(), '5'); });
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    {
        std::unique_lock<std::mutex> probe(ui::Xui::xuiMutex_, std::try_to_lock);
        EXPECT_TRUE(probe.owns_lock());
    }
    EXPECT_NE(ui::Xui::RootCanvas(), nullptr);
    xui_host::pushKey('5');
    reader.join();
}

} // namespace
