// Golden pictures for GoogleTest: a screen against a reviewed PNG. A missing golden fails; on a
// mismatch the actual picture and a diff (differing pixels red over a faded copy) are written
// beside the golden, and a match removes them. With UI_UPDATE_GOLDEN=1 in the environment the
// actual picture is written as the new golden instead, for review, and its path printed.
//
// A relative path is relative to the folder of the test's source file ("golden/approved.png"
// beside PayScreenTest.cpp), never to where the test runs (ui_discover_tests gives each test a
// folder of its own), unless the suite names its golden folder once with setGoldenFolder.
#pragma once

#include "ui/session/Recording.hpp"

#include <xui_host.hpp>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ui::kit {

// Relative golden paths from here on are relative to folder; empty: the test source's folder.
void setGoldenFolder(const std::string& folder);
// Where a golden path points, as the functions below resolve it.
std::string goldenPath(const std::string& path);

// path is the golden's file, "golden/receipt.png"; pixels may differ per channel by at most
// tolerance (0: exact).
::testing::AssertionResult matchesGolden(const xui_host::Pixels& actual, const std::string& path,
                                         unsigned tolerance = 0);

// Lines of text against a reviewed file, one a line (UI_UPDATE_GOLDEN=1 rewrites it); the
// failure shows both.
::testing::AssertionResult matchesGoldenText(const std::vector<std::string>& actual, const std::string& path);

// A recorded session against a reviewed one in folder: every step's picture (folder + its
// picture's name) and, when asked, the LED-and-tone timeline without its times
// (folder/timeline.txt). The failure names each step that differs.
::testing::AssertionResult sessionMatchesGoldens(const std::vector<session::Step>& steps,
                                                 const std::string& folder, bool timeline = true);

} // namespace ui::kit
