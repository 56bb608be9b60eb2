// Golden pictures where a team expects them: beside the test's source, written and cleaned up as
// an update or a match asks.
#include "Support.hpp"

#include <ui/kit/Golden.hpp>

#include <cstdlib>
#include <filesystem>

namespace {

xui_host::Pixels plain(uint32_t argb) {
    return {2, 2, std::vector<uint32_t>(4, argb)};
}

TEST(KitGoldenTest, ARelativePathIsBesideTheTestsSource_UpdatesPrint_AndAMatchClearsWhatAFailureLeft) {
    namespace fs = std::filesystem;
    ui::kit::setGoldenFolder("");
    EXPECT_EQ(fs::path(ui::kit::goldenPath("golden/approved.png")),
              fs::path(__FILE__).parent_path() / "golden/approved.png");

    const fs::path folder = test::tempPath("goldens");
    ui::kit::setGoldenFolder(folder.string());
    setenv("UI_UPDATE_GOLDEN", "1", 1);
    testing::internal::CaptureStdout();
    EXPECT_TRUE(ui::kit::matchesGolden(plain(0xFF00FF00), "green.png"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "golden written: " + (folder / "green.png").string() + "\n");
    unsetenv("UI_UPDATE_GOLDEN");

    EXPECT_FALSE(ui::kit::matchesGolden(plain(0xFFFF0000), "green.png"));
    EXPECT_TRUE(fs::exists(folder / "green_actual.png") && fs::exists(folder / "green_diff.png"));
    EXPECT_TRUE(ui::kit::matchesGolden(plain(0xFF00FF00), "green.png"));
    EXPECT_FALSE(fs::exists(folder / "green_actual.png") || fs::exists(folder / "green_diff.png"));
    ui::kit::setGoldenFolder(UI_GOLDEN_DIR);
}

} // namespace
