// Localized strings and the terminal's default currency.
#pragma once

#include <stdexcept>
#include <string>

namespace localization {
struct Currency {
    std::string symbol;    // e.g. "£"
    std::string separator; // between the major and minor unit, e.g. "."
    unsigned exponent = 2; // digits of the minor unit
};
} // namespace localization

// Thrown for a string identifier that the string table does not hold.
class LocalizationException : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class Localization {
public:
    // Throws LocalizationException for an unknown identifier.
    static std::string getLocalizedString(int id);
    static localization::Currency getDefaultCurrency();
};
