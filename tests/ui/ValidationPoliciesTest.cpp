#include "ui/TextEntry.hpp"

#include <osal/host.hpp>

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using device::input::Key;

Key digit(char c) {
    return c == '0' ? device::input::KEY_0 : Key(device::input::KEY_1 + (c - '1'));
}

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

TEST(NumericPolicyTest, RefusesALeadingZero_AndStopsAtMax) {
    numeric_policy policy;
    policy.setMin(1);
    policy.setMax(100);
    EXPECT_EQ(type(policy, "01005"), (Steps{"", "1", "10", "100", "100"}));
    EXPECT_TRUE(policy.validate("100"));
    EXPECT_FALSE(policy.validate(""));
    EXPECT_FALSE(policy.validate("0"));
    policy.setMax(999);
    EXPECT_EQ(type(policy, "1234").back(), "123");
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
}

// Limits and values are long long, 64 bits on the terminal too, where long has 32.
TEST(NumericPolicyTest, ValidateParsesLikeStoll) {
    numeric_policy policy;
    struct Case {
        const char* text;
        bool valid;
    };
    const Case cases[] = {
        {"-5", true},
        {"  42", true},
        {"+7", true},
        {"12abc", true},
        {"abc", false},
        {"", false},
        {"-", false},
        {"2147483648", true}, // beyond a 32-bit long
        {"-2147483649", true},
        {"9223372036854775807", true},
        {"-9223372036854775808", true},
        {"9223372036854775808", false},
        {"99999999999999999999", false}, // beyond 64 bits
    };
    for (const auto& c : cases)
        EXPECT_EQ(policy.validate(c.text), c.valid) << '"' << c.text << '"';
    policy.setMin(10);
    EXPECT_FALSE(policy.validate("9"));
    policy.setMax(4294967296); // 2^32: a 32-bit limit would have wrapped to 0
    EXPECT_TRUE(policy.validate("4294967296"));
    EXPECT_FALSE(policy.validate("4294967297"));
}

TEST(NumericPolicyTest, TimeAndAddressAllowLeadingZeros_AndStopAtTheirLength) {
    numeric_policy_time time;
    time.setMin(0);
    time.setMax(235959);
    EXPECT_EQ(type(time, "0000000").back(), "000000");
    EXPECT_EQ(type(time, "999999").back(), "99999"); // 999999 > 235959
    EXPECT_EQ(type(time, "995959").back(), "99595"); // 995959 > 235959 as well
    EXPECT_EQ(type(time, "2359591").back(), "235959");
    EXPECT_TRUE(time.validate("995"));
    EXPECT_TRUE(time.validate("not a time"));

    numeric_policy_ipAddress address;
    address.setMin(0);
    address.setMax(255255255255LL);
    EXPECT_EQ(type(address, "9999999999999").back(), "999999999999");
    EXPECT_EQ(type(address, "0192168").back(), "0192168");
    EXPECT_TRUE(address.validate(""));

    default_numeric_policy any;
    EXPECT_EQ(type(any, "00000000000000000000").back().size(), 20u);
    EXPECT_TRUE(any.validate(""));
}

TEST(NumericPolicyTest, NonDigitKeysChangeNothing) {
    numeric_policy policy;
    std::string text = "12";
    for (Key key : {device::input::KEY_ENTER, device::input::KEY_CLEAR, device::input::KEY_STAR,
                    device::input::KEY_NONE}) {
        policy.processKey(text, key);
        EXPECT_EQ(text, "12");
    }
}

// Multi-tap policies on the virtual clock: consecutive keys here are instantaneous.
class AlphaNumericPolicyTest : public ::testing::Test {
protected:
    void SetUp() override { osal::host::useVirtualTime(true); }
    void TearDown() override { osal::host::reset(); }
    void pause() { osal::host::advanceTime(750ms); }
};

TEST_F(AlphaNumericPolicyTest, CyclesThroughTheAllowedClasses) {
    alpha_numeric_policy policy;
    policy.allowCharacters(true);
    pause();
    EXPECT_EQ(type(policy, "222"), (Steps{"A", "B", "C"}));
    pause();
    EXPECT_EQ(type(policy, "33", "C"), (Steps{"CD", "CE"}));
}

TEST_F(AlphaNumericPolicyTest, OnlyNumbers_AQuickRepeatAppends) {
    alpha_numeric_policy policy;
    policy.allowNumbers(true);
    pause();
    EXPECT_EQ(type(policy, "22"), (Steps{"2", "22"}));
}

TEST_F(AlphaNumericPolicyTest, AtExactlyMaxEveryKeyIsRefused_EvenAReplacingRepeat) {
    alpha_numeric_policy policy;
    policy.allowCharacters(true);
    policy.setMax(3);
    pause();
    EXPECT_EQ(type(policy, "2", "abc").back(), "abc");
    pause();
    EXPECT_EQ(type(policy, "22", "ab"), (Steps{"abA", "abA"}));
    // Longer than max (set directly) is not "equal": keys still act.
    EXPECT_EQ(type(policy, "4", "abcd").back(), "abcdG");
}

TEST_F(AlphaNumericPolicyTest, ValidateChecksTheLengthInBytes) {
    alpha_numeric_policy policy;
    policy.setMin(2);
    policy.setMax(3);
    EXPECT_FALSE(policy.validate("a"));
    EXPECT_TRUE(policy.validate("\xC2\xA3"));
    EXPECT_TRUE(policy.validate("abc"));
    EXPECT_FALSE(policy.validate("abcd"));
}

TEST_F(AlphaNumericPolicyTest, NoClassAllowed_EachKeyTypesANulByte) {
    alpha_numeric_policy policy;
    pause();
    EXPECT_EQ(type(policy, "23").back(), std::string(2, '\0'));
    policy.allowSymbols(true); // key 2 carries no symbol either
    pause();
    EXPECT_EQ(type(policy, "2").back(), std::string(1, '\0'));
}

TEST_F(AlphaNumericPolicyTest, TheDefaultPolicyOffersEveryClassWithoutLimit) {
    default_alpha_numeric_policy<true, true, true> policy;
    pause();
    EXPECT_EQ(type(policy, "1111"), (Steps{"1", "!", "\"", "$"})); // £ is filtered out
    EXPECT_TRUE(policy.validate(""));
}

} // namespace
