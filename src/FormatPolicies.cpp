#include "ui/TextEntry.hpp"

namespace {

std::string formatAmount(const std::string& symbol, const std::string& separator, std::size_t exponent,
                         const std::string& raw) {
    const std::size_t n = raw.size();
    std::string out = symbol;
    if (exponent >= n) {
        out += "0";
        out += separator;
        out += std::string(exponent - n, '0');
        out += raw;
    } else {
        out += raw.substr(0, n - exponent);
        out += separator;
        out += raw.substr(n - exponent);
    }
    return out;
}

// The raw text cut after each of the given lengths, with the separator between the pieces; a
// cut at or past the end of the text is not made.
std::string grouped(const std::string& raw, const std::string& separator,
                    std::initializer_list<std::size_t> cuts) {
    std::string out;
    std::size_t from = 0;
    for (const std::size_t cut : cuts) {
        if (raw.size() <= cut)
            break;
        out += raw.substr(from, cut - from);
        out += separator;
        from = cut;
    }
    return out + raw.substr(from);
}

} // namespace

std::string format_policy::formatValue(const std::string& raw) {
    return formatAmount(symbol_, separator_, exponent_, raw);
}
void format_policy::setSymbol(const std::string& symbol) {
    symbol_ = symbol;
}
void format_policy::setExponent(unsigned char exponent) {
    exponent_ = exponent;
}
void format_policy::setSeparator(const std::string& separator) {
    separator_ = separator;
}

std::string default_format_policy::formatValue(const std::string& raw) {
    if (!currency_)
        currency_ = Localization::getDefaultCurrency();
    return formatAmount(currency_->symbol, currency_->separator, currency_->exponent, raw);
}

std::string FormatDatePolicy::formatValue(const std::string& raw) {
    return grouped(raw, separator_, {4, 6});
}
void FormatDatePolicy::setSeparator(const std::string& separator) {
    separator_ = separator;
}

std::string FormatTimePolicy::formatValue(const std::string& raw) {
    return grouped(raw, separator_, {2, 4});
}
void FormatTimePolicy::setSeparator(const std::string& separator) {
    separator_ = separator;
}

std::string FormatIPAdressPolicy::formatValue(const std::string& raw) {
    return grouped(raw, separator_, {3, 6, 9});
}
void FormatIPAdressPolicy::setSeparator(const std::string& separator) {
    separator_ = separator;
}

std::string empty_format_policy::formatValue(const std::string& raw) {
    return raw;
}
