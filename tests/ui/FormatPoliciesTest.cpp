#include "Support.hpp"

#include "ui/TextEntry.hpp"

namespace {

using test::pound;
struct Case {
    std::string raw;
    std::string shown;
};

template <class Policy> void expectShown(Policy& policy, const std::vector<Case>& cases) {
    for (const auto& c : cases)
        EXPECT_EQ(policy.formatValue(c.raw), c.shown) << "raw \"" << c.raw << '"';
}

TEST(FormatPolicyTest, AmountsInMinorUnits) {
    format_policy amount;
    amount.setSymbol(pound);
    amount.setSeparator(".");
    amount.setExponent(2);
    // Typed zeros are shown as typed.
    expectShown(amount, {{"", pound + "0.00"},
                         {"99", pound + "0.99"},
                         {"123456", pound + "1234.56"},
                         {"007", pound + "0.07"}});
    amount.setExponent(3);
    expectShown(amount, {{"5", pound + "0.005"}, {"12345", pound + "12.345"}});
    amount.setExponent(0); // the separator is still written, last
    expectShown(amount, {{"", pound + "0."}, {"123", pound + "123."}});
    amount.setSymbol("EUR ");
    amount.setSeparator(",");
    amount.setExponent(2);
    expectShown(amount, {{"1999", "EUR 19,99"}});
    format_policy bare;
    expectShown(bare, {{"", "0"}, {"42", "42"}});
}

TEST(FormatPolicyTest, DateTimeAndAddressAreGroupedAsTyped) {
    FormatDatePolicy date;
    expectShown(date, {{"", ""},
                       {"2024", "2024"},
                       {"20241", "2024/1"},
                       {"202411", "2024/11"},
                       {"202411150", "2024/11/150"}});
    date.setSeparator("-");
    expectShown(date, {{"2024111", "2024-11-1"}});

    FormatTimePolicy time;
    expectShown(
        time,
        {{"09", "09"}, {"093", "09:3"}, {"0930", "09:30"}, {"093045", "09:30:45"}, {"1234567", "12:34:567"}});

    FormatIPAdressPolicy address;
    expectShown(address, {{"192", "192"}, {"1921680", "192.168.0"}, {"1921680010109", "192.168.001.0109"}});

    empty_format_policy identity;
    expectShown(identity, {{"", ""}, {"a b", "a b"}});
}

class DefaultFormatPolicyTest : public ::testing::Test {
protected:
    void TearDown() override { osal::host::reset(); }
};

TEST_F(DefaultFormatPolicyTest, ReadsTheCurrencyOnce_AndAgainAfterAFailedRead) {
    osal::host::setCurrency({"$", ".", 2});
    default_format_policy amount;
    EXPECT_EQ(amount.formatValue("150"), "$1.50");
    osal::host::setCurrency({"kr", ",", 0});
    EXPECT_EQ(amount.formatValue("150"), "$1.50");
    EXPECT_EQ(default_format_policy().formatValue("150"), "kr150,"); // a new policy sees the change

    osal::host::setCurrencyUnavailable(true); // a failed read propagates, and the next call tries again
    default_format_policy unread;
    EXPECT_ANY_THROW(unread.formatValue("1"));
    osal::host::setCurrencyUnavailable(false);
    EXPECT_EQ(unread.formatValue("1"), "kr1,");
}

} // namespace
