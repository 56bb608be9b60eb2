#include "Support.hpp"

#include "ui/TextEntry.hpp"

namespace {

using test::digit;
using namespace std::chrono_literals;
using device::input::Key;

// Types the digits one by one and returns the text after each key.
template <class Policy>
std::vector<std::string> type(Policy& policy, const std::string& digits, std::string text = "") {
    std::vector<std::string> after;
    for (char c : digits) {
        policy.processKey(text, digit(c));
        after.push_back(text);
    }
    return after;
}

using Steps = std::vector<std::string>;

// Keys other than digits change nothing; time and address entries stop at their length even
// while the value, leading zeros and all, is still within the maximum, and take the maximum.
TEST(NumericPolicyTest, OnlyDigitsType_AndTimeAndAddressStopAtTheirLength) {
    numeric_policy policy;
    std::string text = "12";
    for (Key key : {device::input::KEY_ENTER, device::input::KEY_CLEAR, device::input::KEY_STAR,
                    device::input::KEY_NONE})
        policy.processKey(text, key);
    EXPECT_EQ(text, "12");
    // A sign or blanks set before the digits are read past.
    for (const char* before : {"-", "+", "  "})
        EXPECT_EQ(type(policy, "5", before).back(), before + std::string("5"));
    numeric_policy_time time;
    time.setMax(235959);
    EXPECT_EQ(type(time, "0000000").back(), "000000");
    EXPECT_EQ(type(time, "235959").back(), "235959"); // the maximum itself is in
    numeric_policy_ipAddress address;
    address.setMax(255255255255LL);
    EXPECT_EQ(type(address, "0000000000000").back(), "000000000000");
    address.setMax(192168001); // (the address's own maximum reads saturated, below itself)
    EXPECT_EQ(type(address, "192168001").back(), "192168001");
}

// The value typed saturates at the 32-bit int limit whatever the width of long: 32 bits on the
// terminal, 64 on this PC.
TEST(NumericPolicyTest, FromMax2147483647Up_TheSaturatedValueAcceptsAnyNumberOfDigits) {
    numeric_policy policy;
    policy.setMax(2147483646);
    EXPECT_EQ(type(policy, "2147483646").back(), "2147483646");
    EXPECT_EQ(type(policy, "9", "2147483646").back(), "2147483646");
    policy.setMax(2147483647);
    EXPECT_EQ(type(policy, "999999999999").back(), "999999999999");
    EXPECT_FALSE(policy.validate("999999999999")); // typed, yet above max as a 64-bit number
    policy.setMax(INT32_MIN); // -2147483647 reads as itself, only what lies past it as the lowest value
    EXPECT_EQ(type(policy, "78", "-214748364"), (Steps{"-214748364", "-2147483648"}));
}

// Limits and values are long long, 64 bits on the terminal too, where long has 32.
TEST(NumericPolicyTest, ValidateParsesLikeStoll) {
    numeric_policy policy;
    // Beyond a 32-bit long, up to the 64-bit limits:
    for (const char* text : {"-5", "  42", "+7", "12abc", "2147483648", "-2147483649", "9223372036854775807",
                             "-9223372036854775808"})
        EXPECT_TRUE(policy.validate(text)) << '"' << text << '"';
    for (const char* text : {"abc", "", "-", "9223372036854775808", "99999999999999999999"})
        EXPECT_FALSE(policy.validate(text)) << '"' << text << '"';
    policy.setMin(10);
    EXPECT_FALSE(policy.validate("9"));
    policy.setMax(4294967296); // 2^32: a 32-bit limit would have wrapped to 0
    EXPECT_TRUE(policy.validate("4294967296"));
    EXPECT_FALSE(policy.validate("4294967297"));
}

// Multi-tap policies on the virtual clock: the keys of one string are instantaneous, and a
// pause of the 750 ms interval comes before each.
TEST(AlphaNumericPolicyTest, TypesFromTheAllowedClassesUpToMax) {
    osal::host::useVirtualTime(true);
    struct Case {
        bool numbers, symbols, characters;
        unsigned max;
        std::string text, keys;
        Steps after;
    } cases[] = {
        {false, false, true, 0, "", "222", {"A", "B", "C"}},
        {false, false, true, 0, "C", "33", {"CD", "CE"}},
        {true, false, false, 0, "", "22", {"2", "22"}},      // only digits: a quick repeat appends
        {false, false, true, 3, "abc", "2", {"abc"}},        // at exactly max every key is refused,
        {false, false, true, 3, "ab", "22", {"abA", "abA"}}, // even a replacing repeat;
        {false, false, true, 3, "abcd", "4", {"abcdG"}},     // longer (set directly) is not equal
        {false, false, false, 0, "", "23", {std::string(1, '\0'), std::string(2, '\0')}}, // no class
        {false, true, false, 0, "", "2", {std::string(1, '\0')}}, // key 2 carries no symbol
    };
    for (auto& c : cases) {
        alpha_numeric_policy policy;
        policy.allowNumbers(c.numbers);
        policy.allowSymbols(c.symbols);
        policy.allowCharacters(c.characters);
        if (c.max)
            policy.setMax(c.max);
        osal::host::advanceTime(750ms);
        EXPECT_EQ(type(policy, c.keys, c.text), c.after) << "\"" << c.keys << "\" after \"" << c.text << "\"";
    }
    default_alpha_numeric_policy<true, true, true> every;
    osal::host::advanceTime(750ms);
    EXPECT_EQ(type(every, "1111"), (Steps{"1", "!", "\"", "$"})); // the pound sign is filtered out
    EXPECT_TRUE(every.validate(""));
    osal::host::reset();
}

TEST(AlphaNumericPolicyTest, ValidateChecksTheLengthInBytes) {
    alpha_numeric_policy policy;
    policy.setMin(2);
    policy.setMax(3);
    EXPECT_FALSE(policy.validate("a"));
    EXPECT_TRUE(policy.validate("\xC2\xA3"));
    EXPECT_TRUE(policy.validate("abc"));
    EXPECT_FALSE(policy.validate("abcd"));
}

} // namespace
