#include "osal/localization.hpp"
#include "Internal.hpp"
#include "osal/host.hpp"
#include "osal/strings.hpp"

#include <fstream>
#include <map>
#include <mutex>

namespace {

const char* const kDefaultStrings = "res/strings/en.txt";

struct Table {
    std::mutex mutex;
    bool loaded = false; // set once anything was loaded or set, so the default is read once
    std::map<int, std::string> strings;
    localization::Currency currency{"\xC2\xA3", ".", 2}; // pound sterling
    bool currencyUnavailable = false;
    double pseudoFactor = 0; // 0: strings as they are
};

Table& table() {
    static Table& t = *new Table; // never destroyed
    return t;
}

bool loadInto(Table& t, const std::string& path) {
    std::ifstream in(path);
    if (!in)
        return false;
    std::map<int, std::string> read;
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        const auto eq = line.find('=');
        const std::string key = trim(line.substr(0, eq));
        if (key.empty() || key[0] == '#' || eq == std::string::npos)
            continue;
        try {
            read[std::stoi(key)] = line.substr(eq + 1);
        } catch (const std::exception&) {
            continue; // not a number: skip the line, keep the rest
        }
    }
    t.strings = std::move(read);
    t.loaded = true;
    return true;
}

// The string as a long translation would make it: letters accented, as many characters again
// as the factor asks for after a space, "[" and "]" at both ends.
std::string pseudoLocalized(const std::string& text, double factor) {
    static const std::map<char, const char*> accented = {
        {'a', "\xC3\xA1"}, {'e', "\xC3\xA9"}, {'i', "\xC3\xAD"}, {'o', "\xC3\xB6"}, {'u', "\xC3\xBC"},
        {'n', "\xC3\xB1"}, {'c', "\xC3\xA7"}, {'y', "\xC3\xBD"}, {'A', "\xC3\x81"}, {'E', "\xC3\x89"},
        {'I', "\xC3\x8D"}, {'O', "\xC3\x96"}, {'U', "\xC3\x9C"}, {'N', "\xC3\x91"}, {'C', "\xC3\x87"}};
    std::string out = "[";
    std::size_t characters = 0;
    for (char c : text) {
        if ((static_cast<unsigned char>(c) & 0xC0) != 0x80)
            ++characters;
        const auto it = accented.find(c);
        out += it == accented.end() ? std::string(1, c) : std::string(it->second);
    }
    const auto extra = static_cast<std::size_t>(double(characters) * (factor - 1) + 0.5);
    if (extra > 0)
        out += " " + std::string(extra - 1, '~');
    return out + "]";
}

} // namespace

std::string Localization::getLocalizedString(int id) {
    std::string text;
    {
        auto& t = table();
        std::lock_guard<std::mutex> lock(t.mutex);
        if (!t.loaded)
            loadInto(t, kDefaultStrings), t.loaded = true;
        auto it = t.strings.find(id);
        if (it == t.strings.end())
            throw LocalizationException("no localized string with id " + std::to_string(id));
        text = t.pseudoFactor > 0 ? pseudoLocalized(it->second, t.pseudoFactor) : it->second;
    }
    osal::detail::textGiven(text, true);
    return text;
}

localization::Currency Localization::getDefaultCurrency() {
    auto& t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    if (t.currencyUnavailable)
        throw LocalizationException("no default currency configured");
    return t.currency;
}

namespace osal::detail {
void resetLocalization() {
    auto& t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    t.loaded = false;
    t.strings.clear();
    t.currency = {"\xC2\xA3", ".", 2};
    t.currencyUnavailable = false;
    t.pseudoFactor = 0;
}
} // namespace osal::detail

namespace osal::host {

bool loadStrings(const std::string& path) {
    auto& t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    return loadInto(t, path);
}

void setString(int id, const std::string& text) {
    auto& t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    t.strings[id] = text;
    t.loaded = true;
}

void clearStrings() {
    auto& t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    t.strings.clear();
    t.loaded = true;
}

void setCurrency(const localization::Currency& currency) {
    auto& t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    t.currency = currency;
}

void setCurrencyUnavailable(bool unavailable) {
    auto& t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    t.currencyUnavailable = unavailable;
}

void setPseudoLocalization(double factor) {
    auto& t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    t.pseudoFactor = factor;
}

} // namespace osal::host
