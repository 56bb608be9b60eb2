#include "osal/localization.hpp"
#include "Resets.hpp"
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

} // namespace

std::string Localization::getLocalizedString(int id) {
    auto& t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    if (!t.loaded)
        loadInto(t, kDefaultStrings), t.loaded = true;
    auto it = t.strings.find(id);
    if (it == t.strings.end())
        throw LocalizationException("no localized string with id " + std::to_string(id));
    return it->second;
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

} // namespace osal::host
