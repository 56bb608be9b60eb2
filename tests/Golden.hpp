// Golden pictures of this project's tests: the kit's comparison, with the goldens under
// tests/golden (the folder Main.cpp names for the suite).
#pragma once

#include <ui/kit/Golden.hpp>

#include <string>

namespace test {

inline ::testing::AssertionResult matchesGolden(const xui_host::Pixels& actual, const std::string& name,
                                                unsigned tolerance = 0) {
    return ui::kit::matchesGolden(actual, name + ".png", tolerance);
}

} // namespace test
