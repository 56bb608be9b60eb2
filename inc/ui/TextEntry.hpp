// Text entry on a digit keypad: the multi-tap key table and cycle, and the validation and
// format policies that a text box is built from. These live at global scope, as applications
// name them in their TextBox instantiations.
#pragma once

#include <osal/input.hpp>
#include <osal/localization.hpp>
#include <osal/timer.hpp>

#include <cstdint>
#include <map>
#include <optional>
#include <string>

// Multi-tap -----------------------------------------------------------------------------------

// Character classes a text field accepts, as a bit mask. The classes are those of the "C"
// locale whatever locale the application has set, on single bytes: the bytes of two-byte
// characters such as £ belong to none.
enum CharacterSet : unsigned {
    Characters = 1, // isalpha
    Numbers = 2,    // '0' to '9'
    Symbols = 4,    // ispunct
};

class ICharacterKeyBinding {
public:
    virtual ~ICharacterKeyBinding() = default;
    // Length of the key's string in bytes; 0 for a key without one.
    virtual unsigned getTotalCharacterBindings(device::input::Key key) const = 0;
    // The one byte at index, or empty when the key has no string or index is past its end.
    virtual std::string getIndexedCharacterFromKey(device::input::Key key, unsigned index) const = 0;
    // The key's string with only the bytes of the classes in set, in order.
    virtual std::string getCharacterSetFromKey(device::input::Key key, CharacterSet set) const = 0;
};

// The characters of each digit key, in cycle order, the digit first. The default table is the
// terminal's: letters upper then lower case on 2 to 9, punctuation on 1 and 0.
class CharacterKeyBinding : public ICharacterKeyBinding {
public:
    CharacterKeyBinding();
    explicit CharacterKeyBinding(std::map<device::input::Key, std::string> table);

    unsigned getTotalCharacterBindings(device::input::Key key) const override;
    std::string getIndexedCharacterFromKey(device::input::Key key, unsigned index) const override;
    std::string getCharacterSetFromKey(device::input::Key key, CharacterSet set) const override;

private:
    std::map<device::input::Key, std::string> table_;
};

// One step of the multi-tap cycle over characters: the same digit key pressed again less than
// 750 ms after the previous press gives the next character, which is to replace the one typed
// last; another key or a pause starts a new character. The timer is restarted on each press.
// A non-digit key gives "" and changes nothing. The cycle's position is one process-wide state
// (one field is edited at a time, from the keypad thread only), so switching fields on the
// same key within 750 ms continues the cycle. An empty character string gives the one-byte
// string holding NUL: intended, callers allow a class the key carries.
std::string getCharacterFromKeyPress(device::input::Key key, const std::string& characters, ITimer& timer);
// The text with the multi-tap character applied: appended, or replacing the last byte.
std::string appendCharacterFromKeyPress(device::input::Key key, const std::string& characters, ITimer& timer,
                                        const std::string& text);

// Validation policies -------------------------------------------------------------------------
// Each decides how one key changes the raw entry (processKey: digit keys only; deleting is the
// text box's job) and whether a finished entry is acceptable (validate). A digit is accepted
// when the entry with that digit appended, read as a 32-bit number that saturates at
// 2147483647, stays within the policy's rules; a refused key changes nothing.

namespace ui::detail {
// The limits the numeric policies share; the whole 64-bit range by default.
class numeric_limits {
public:
    void setMin(long long min) { min_ = min; }
    void setMax(long long max) { max_ = max; }

protected:
    long long min_ = INT64_MIN;
    long long max_ = INT64_MAX;
};

// The multi-tap step of the text policies, for the classes in mask.
std::string multiTap(const std::string& text, const device::input::Key& key, unsigned mask, ITimer& timer,
                     const ICharacterKeyBinding& binding);
} // namespace ui::detail

// A number without leading zeros, at most max; validate parses like std::stoll and checks min
// too. The length is limited by max alone: from max 2147483647 up the saturated value never
// exceeds it, so any number of digits is accepted.
class numeric_policy : public ui::detail::numeric_limits {
public:
    void processKey(std::string& text, const device::input::Key& key);
    bool validate(const std::string& text) const;
};

// HHMMSS: leading zeros allowed, at most six digits and at most max; any entry validates
// (hours and minutes are not range-checked).
class numeric_policy_time : public ui::detail::numeric_limits {
public:
    void processKey(std::string& text, const device::input::Key& key);
    bool validate(const std::string& text) const;
};

// Four groups of three digits: leading zeros allowed, at most twelve digits and at most max;
// any entry validates.
class numeric_policy_ipAddress : public ui::detail::numeric_limits {
public:
    void processKey(std::string& text, const device::input::Key& key);
    bool validate(const std::string& text) const;
};

// Any digits, any number of them.
class default_numeric_policy {
public:
    void processKey(std::string& text, const device::input::Key& key);
    bool validate(const std::string& text) const;
};

// Multi-tap text of the allowed classes, between min and max bytes long. At exactly max bytes
// every key is refused, even a quick repeat that would only replace the last character. With
// no class that a key carries, the key types a NUL byte (see getCharacterFromKeyPress).
class alpha_numeric_policy {
public:
    void processKey(std::string& text, const device::input::Key& key);
    bool validate(const std::string& text) const;
    void allowSymbols(bool allow);
    void allowNumbers(bool allow);
    void allowCharacters(bool allow);
    void setMin(unsigned min);
    void setMax(unsigned max);

private:
    bool allowSymbols_ = false;
    bool allowNumbers_ = false;
    bool allowCharacters_ = false;
    unsigned min_ = 0;
    unsigned max_ = UINT32_MAX;
    Timer timer_;
    CharacterKeyBinding keyBinding_;
};

// Multi-tap text of fixed classes without any limit; every entry validates.
template <bool AllowSymbols = true, bool AllowNumbers = true, bool AllowCharacters = true>
class default_alpha_numeric_policy {
public:
    void processKey(std::string& text, const device::input::Key& key) {
        constexpr unsigned mask = (AllowCharacters ? Characters : 0u) | (AllowNumbers ? Numbers : 0u) |
                                  (AllowSymbols ? Symbols : 0u);
        text = ui::detail::multiTap(text, key, mask, timer_, keyBinding_);
    }
    bool validate(const std::string&) const { return true; }

private:
    Timer timer_;
    CharacterKeyBinding keyBinding_;
};

// Format policies ---------------------------------------------------------------------------
// Each turns the raw entry into the string drawn; the raw entry itself is never changed.

// An amount in minor units: symbol, integer part, separator, exponent digits. No grouping, no
// sign, no removal of leading zeros. The separator is written even with exponent 0 ("£123."):
// intended, as the terminal has always shown it.
class format_policy {
public:
    std::string formatValue(const std::string& raw);
    void setSymbol(const std::string& symbol);
    void setExponent(unsigned char exponent);
    void setSeparator(const std::string& separator);

private:
    std::string symbol_;
    std::string separator_;
    unsigned char exponent_ = 0;
};

// As format_policy, in the terminal's default currency, read on first use and then kept for
// the life of the policy. A failure to read it propagates and the next call tries again.
class default_format_policy {
public:
    std::string formatValue(const std::string& raw);

private:
    std::optional<localization::Currency> currency_;
};

// YYYY/MM/DD as the digits arrive (2024/1 after five digits).
class FormatDatePolicy {
public:
    std::string formatValue(const std::string& raw);
    void setSeparator(const std::string& separator);

private:
    std::string separator_ = "/";
};

// HH:MM:SS as the digits arrive; digits past six follow the second separator.
class FormatTimePolicy {
public:
    std::string formatValue(const std::string& raw);
    void setSeparator(const std::string& separator);

private:
    std::string separator_ = ":";
};

// Groups of three digits: 192.168.001.010.
class FormatIPAdressPolicy {
public:
    std::string formatValue(const std::string& raw);
    void setSeparator(const std::string& separator);

private:
    std::string separator_ = ".";
};

// The raw entry as it is.
class empty_format_policy {
public:
    std::string formatValue(const std::string& raw);
};
