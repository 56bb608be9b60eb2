// The line breaking as first written: every prefix of a word too wide for its line measured,
// from the longest down, one byte at a time. Slow on long words by design; the tests and the
// text fuzz target compare the library's breaking with it.
#pragma once

#include <osal/strings.hpp>

#include <functional>
#include <string>
#include <vector>

namespace test {

using Measure = std::function<unsigned(const char*)>;

inline std::vector<std::string> referenceWrapText(const std::string& text, unsigned width,
                                                  const Measure& measure) {
    std::vector<std::string> words = splitOnDelimeters(text, " ");
    std::vector<std::string> lines;
    if (words.empty())
        return lines;
    std::size_t cursor = 0;
    std::string current = words[0];
    while (cursor < words.size()) {
        const unsigned measured = measure(current.c_str());
        if (measured < width) {
            if (cursor + 1 == words.size()) {
                lines.push_back(trim(current, " "));
                break;
            }
            current += " " + words[++cursor];
        } else if (measured == width) {
            ++cursor;
            lines.push_back(current);
            if (cursor < words.size())
                current = words[cursor];
        } else {
            std::size_t cut;
            const auto space = current.rfind(' ');
            if (space != std::string::npos) {
                cut = space + 1;
            } else {
                cut = 1;
                for (std::size_t k = current.size(); k > 0; --k) {
                    if (measure(current.substr(0, k).c_str()) <= width) {
                        cut = k;
                        break;
                    }
                }
                words[cursor] = trim(current.substr(cut), " ");
            }
            lines.push_back(trim(current.substr(0, cut), " "));
            current = words[cursor];
        }
    }
    return lines;
}

} // namespace test
