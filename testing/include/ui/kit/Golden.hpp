// Golden pictures for GoogleTest: a screen against a reviewed PNG. A missing golden fails; on a
// mismatch the actual picture and a diff (differing pixels red over a faded copy) are written
// beside the golden. With UI_UPDATE_GOLDEN=1 in the environment the actual picture is written
// as the new golden instead, for review.
#pragma once

#include <xui_host.hpp>

#include <gtest/gtest.h>

#include <string>

namespace ui::kit {

// path is the golden's file, "tests/golden/receipt.png"; pixels may differ per channel by at
// most tolerance (0: exact).
::testing::AssertionResult matchesGolden(const xui_host::Pixels& actual, const std::string& path,
                                         unsigned tolerance = 0);

} // namespace ui::kit
