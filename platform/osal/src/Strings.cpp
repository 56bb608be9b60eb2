#include "osal/strings.hpp"

std::string trim(const std::string& text, const std::string& chars) {
    const auto first = text.find_first_not_of(chars);
    if (first == std::string::npos)
        return "";
    const auto last = text.find_last_not_of(chars);
    return text.substr(first, last - first + 1);
}

std::vector<std::string> splitOnDelimeters(const std::string& text, const std::string& delimiters) {
    std::vector<std::string> pieces;
    std::string::size_type start = 0;
    while (start <= text.size()) {
        const auto end = text.find_first_of(delimiters, start);
        const auto stop = end == std::string::npos ? text.size() : end;
        if (stop > start)
            pieces.push_back(text.substr(start, stop - start));
        if (end == std::string::npos)
            break;
        start = end + 1;
    }
    return pieces;
}
