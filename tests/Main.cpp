#include <ui/kit/Golden.hpp>

#include <gmock/gmock.h>

#include <cstdlib>

int main(int argc, char** argv) {
    ::testing::InitGoogleMock(&argc, argv);
    // Death tests fork a process that runs library threads: re-execute instead of forking.
    // Under an emulator only the first program is emulated, so there the environment asks for
    // the fork (GTEST_DEATH_TEST_STYLE=fast).
    if (!std::getenv("GTEST_DEATH_TEST_STYLE"))
        GTEST_FLAG_SET(death_test_style, "threadsafe");
    ui::kit::setGoldenFolder(UI_GOLDEN_DIR);
    return RUN_ALL_TESTS();
}
