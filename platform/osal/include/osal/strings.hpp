// String helpers of the platform-support library.
#pragma once

#include <string>
#include <vector>

// Removes every leading and trailing character that appears in chars.
std::string trim(const std::string& text, const std::string& chars = " \t\r\n");
// Splits on any of the delimiter characters. Empty pieces (from leading, trailing or repeated
// delimiters) are dropped, so "" and "   " give no pieces at all.
std::vector<std::string> splitOnDelimeters(const std::string& text, const std::string& delimiters);
