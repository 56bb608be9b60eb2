// Golden pictures of this project's tests: the kit's comparison, with the goldens under
// tests/golden.
#pragma once

#include <ui/kit/Golden.hpp>

#include <string>

namespace test {

inline std::string goldenPath(const std::string& name) {
    return std::string(UI_GOLDEN_DIR) + "/" + name + ".png";
}

inline ::testing::AssertionResult matchesGolden(const xui_host::Pixels& actual, const std::string& name,
                                                unsigned tolerance = 0) {
    return ui::kit::matchesGolden(actual, goldenPath(name), tolerance);
}

} // namespace test
