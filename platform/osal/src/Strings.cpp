#include "osal/strings.hpp"
#include "Internal.hpp"
#include "Listeners.hpp"
#include "osal/host.hpp"

#include <thread>

std::string trim(const std::string& text, const std::string& chars) {
    const auto first = text.find_first_not_of(chars);
    if (first == std::string::npos)
        return "";
    const auto last = text.find_last_not_of(chars);
    return text.substr(first, last - first + 1);
}

std::vector<std::string> splitOnDelimeters(const std::string& text, const std::string& delimiters) {
    // Split into words, a text is about to be laid out in lines: the host's tests check that
    // what was given is what was shown.
    if (delimiters.find(' ') != std::string::npos)
        osal::detail::textGiven(text, false);
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

namespace {

osal::detail::Listeners<osal::host::GivenText>& textListeners() {
    static auto& listeners = *new osal::detail::Listeners<osal::host::GivenText>; // never destroyed
    return listeners;
}

} // namespace

namespace osal::detail {

void textGiven(const std::string& text, bool lookedUp) {
    if (!textListeners().empty())
        textListeners().notify({text, lookedUp, std::this_thread::get_id()});
}

} // namespace osal::detail

namespace osal::host {

int addTextListener(std::function<void(const GivenText&)> listener) {
    return textListeners().add(std::move(listener));
}

void removeTextListener(int id) {
    textListeners().remove(id);
}

} // namespace osal::host
