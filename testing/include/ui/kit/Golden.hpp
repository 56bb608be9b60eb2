// Golden pictures for GoogleTest: a screen against a reviewed PNG. A missing golden fails; on a
// mismatch the actual picture and a diff (differing pixels red over a faded copy) are written
// beside the golden. With UI_UPDATE_GOLDEN=1 in the environment the actual picture is written
// as the new golden instead, for review.
#pragma once

#include "ui/kit/Recording.hpp"

#include <xui_host.hpp>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ui::kit {

// path is the golden's file, "tests/golden/receipt.png"; pixels may differ per channel by at
// most tolerance (0: exact).
::testing::AssertionResult matchesGolden(const xui_host::Pixels& actual, const std::string& path,
                                         unsigned tolerance = 0);

// Lines of text against a reviewed file, one a line (UI_UPDATE_GOLDEN=1 rewrites it); the
// failure shows both.
::testing::AssertionResult matchesGoldenText(const std::vector<std::string>& actual, const std::string& path);

// A recorded session against a reviewed one in folder: every step's picture (folder + its
// picture's name) and, when asked, the LED-and-tone timeline without its times
// (folder/timeline.txt). The failure names each step that differs.
::testing::AssertionResult sessionMatchesGoldens(const std::vector<Step>& steps, const std::string& folder,
                                                 bool timeline = true);

} // namespace ui::kit
