#include "ui/TextEntry.hpp"

#include <cctype>
#include <climits>
#include <stdexcept>

using device::input::Key;

namespace {

bool isDigitKey(Key key) {
    return key >= device::input::KEY_1 && key <= device::input::KEY_0;
}

// The entry read as the terminal has always read it: base 10 into a signed 32-bit number that
// saturates instead of overflowing, so a long digit string reads as 2147483647. Leading blanks
// and a sign are allowed; reading stops at the first non-digit.
long long saturatedValue(const std::string& text) {
    const char* p = text.c_str(); // the NUL at the end stops every loop below
    while (std::isspace(static_cast<unsigned char>(*p)))
        ++p;
    bool negative = false;
    if (*p == '+' || *p == '-')
        negative = *p++ == '-';
    long long value = 0;
    for (; *p >= '0' && *p <= '9'; ++p) {
        value = value * 10 + (*p - '0');
        if (value > INT32_MAX)
            return negative ? INT32_MIN : INT32_MAX;
    }
    return negative ? -value : value;
}

// The entry with the key's digit appended, if acceptable by the rule.
template <class Rule> void acceptDigit(std::string& text, Key key, Rule accepts) {
    if (!isDigitKey(key))
        return;
    std::string candidate = text + device::input::getKeyString(key);
    if (accepts(saturatedValue(candidate)))
        text = std::move(candidate);
}

} // namespace

void numeric_policy::processKey(std::string& text, const Key& key) {
    // A first 0 reads as 0 and is refused: amounts have no leading zero.
    acceptDigit(text, key, [this](long long value) { return value != 0 && value <= max_; });
}

bool numeric_policy::validate(const std::string& text) const {
    try {
        const long long number = std::stoll(text);
        return min_ <= number && number <= max_;
    } catch (const std::logic_error&) { // no number at the start, or out of range
        return false;
    }
}

void numeric_policy_time::processKey(std::string& text, const Key& key) {
    const bool room = text.size() < 6;
    acceptDigit(text, key, [&](long long value) { return room && value <= max_; });
}

bool numeric_policy_time::validate(const std::string&) const {
    return true;
}

void numeric_policy_ipAddress::processKey(std::string& text, const Key& key) {
    const bool room = text.size() < 12;
    acceptDigit(text, key, [&](long long value) { return room && value <= max_; });
}

bool numeric_policy_ipAddress::validate(const std::string&) const {
    return true;
}

void default_numeric_policy::processKey(std::string& text, const Key& key) {
    acceptDigit(text, key, [](long long) { return true; });
}

bool default_numeric_policy::validate(const std::string&) const {
    return true;
}

void alpha_numeric_policy::processKey(std::string& text, const Key& key) {
    if (!isDigitKey(key) || text.size() == max_)
        return;
    const unsigned mask = (allowCharacters_ ? Characters : 0u) | (allowNumbers_ ? Numbers : 0u) |
                          (allowSymbols_ ? Symbols : 0u);
    text = ui::detail::multiTap(text, key, mask, timer_, keyBinding_);
}

bool alpha_numeric_policy::validate(const std::string& text) const {
    return min_ <= text.size() && text.size() <= max_;
}

void alpha_numeric_policy::allowSymbols(bool allow) {
    allowSymbols_ = allow;
}
void alpha_numeric_policy::allowNumbers(bool allow) {
    allowNumbers_ = allow;
}
void alpha_numeric_policy::allowCharacters(bool allow) {
    allowCharacters_ = allow;
}
void alpha_numeric_policy::setMin(unsigned min) {
    min_ = min;
}
void alpha_numeric_policy::setMax(unsigned max) {
    max_ = max;
}
