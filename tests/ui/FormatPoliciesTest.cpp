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
