#include "Support.hpp"

#include "ui/Label.hpp"
#include "ui/Xui.hpp"

#include <unistd.h>

#include <thread>

namespace {

using XuiWrapper = test::PlatformTest;

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
    EXPECT_EQ(ui::fonts::GetTextWidth(""), 0u); // nothing measures nothing
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

// In a process of its own (the font is cached for the process), started where there is no
// ./res: every text path keeps working, measures nothing, and the missing font is logged once.
TEST(FontFaultTest, AMissingFont_IsLoggedOnce_AndTextStillFlows) {
    EXPECT_EXIT(
        {
            std::vector<std::string> lines;
            osal::host::setLogSink([&](LogLevel, const std::string& line) { lines.push_back(line); });
            const std::string elsewhere = ::testing::TempDir();
            if (chdir(elsewhere.c_str()) != 0)
                std::_Exit(3);
            char bar[] = "STATUSBAR=24";
            char* argv[] = {bar};
            XuiOpen(1, argv);
            ui::Label label(0, 0, 100, 20);
            label.setText("Present your card");
            label.draw(XuiRootCanvas());
            const bool measuresNothing = ui::fonts::GetTextWidth("Card") == 0;
            const bool oneLine = label.getText() == "Present your card";
            XuiClose();
            const bool loggedOnce =
                lines.size() == 1 &&
                lines[0].find("cannot load ./res/Carlito-Regular.ttf") != std::string::npos;
            std::fprintf(stderr, "measures nothing %d, one line %d, logged once %d\n", measuresNothing,
                         oneLine, loggedOnce);
            std::_Exit(measuresNothing && oneLine && loggedOnce ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
}

} // namespace
