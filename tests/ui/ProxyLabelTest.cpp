#include "Support.hpp"

#include "ui/Label.hpp"
#include "ui/Xui.hpp"

namespace {

using Texts = std::vector<std::string>;

class ProxyLabelTest : public test::PlatformTest {
protected:
    void SetUp() override {
        test::PlatformTest::SetUp();
        osal::host::clearStrings();
        osal::host::setString(1, "Welcome");
        osal::host::setString(2, "Please present your card to the reader");
    }
};

TEST_F(ProxyLabelTest, LocalizedText_TakesTheWrappedSize_AndAnUnknownIdIsLogged) {
    ui::ProxyLabel label(0, 0, 120, 20);
    label.setText(2);
    const Texts lines = WrapText("Please present your card to the reader", 120);
    ASSERT_GT(lines.size(), 2u);
    EXPECT_EQ(label.getHeight(), 20 * lines.size());
    EXPECT_EQ(test::texts(test::drawCalls(label)), lines);
    label.setText(std::string("Hi")); // plain text: the proxy's own size stays
    EXPECT_EQ(label.getHeight(), 20 * lines.size());
    ui::ProxyLabel known(0, 0, 200, 20);
    known.setText(1);
    known.setText(404); // logged once, and the text stays
    EXPECT_EQ(known.getText(), "Welcome");
    EXPECT_EQ(known.getHeight(), 20u);
    const auto reports = osal::host::exceptionReports();
    ASSERT_EQ(reports.size(), 1u);
    EXPECT_EQ(reports[0].source, "ProxyLabel");
    EXPECT_NE(reports[0].what.find("404"), std::string::npos);
}

TEST_F(ProxyLabelTest, PrefixAndSuffix_RunWrappedLinesTogether) {
    ui::ProxyLabel label(0, 0, 300, 20);
    label.setText(1);
    label.setPrefix("> ");
    label.setSuffix("!");
    EXPECT_EQ(label.getText(), "> Welcome!");
    ui::ProxyLabel narrow(0, 0, 120, 20);
    narrow.setText(2);
    narrow.setSuffix(".");
    // "Please" and "present" were wrapped apart: the suffix joins them for good.
    const std::string text = narrow.getText();
    EXPECT_EQ(text.rfind("Pleasepresent", 0), 0u) << text;
    EXPECT_EQ(text.back(), '.');
    narrow.clearText();
    EXPECT_EQ(narrow.getText(), "");
}

TEST_F(ProxyLabelTest, CopiesTakeTheSourceBox_AssignmentsOnlyTheInnerLabel) {
    ui::ProxyLabel source(10, 20, 200, 20);
    source.setText(1);
    source.setColor(0xFF0000FF);
    source.setAlignment(ui::utils::Right);
    source.setVisible(false);

    ui::ProxyLabel copy(source);
    EXPECT_TRUE(copy.isVisible());
    EXPECT_EQ(test::box(copy), "10 20 200 20");
    EXPECT_EQ(copy.getText(), "Welcome");

    ui::ProxyLabel target(1, 2, 3, 4);
    target = source;
    EXPECT_EQ(test::box(target), "1 2 3 4"); // its own box is untouched...
    EXPECT_EQ(target.getText(), "Welcome");
    target.setVisible(true); // ...while the inner label took the source's box, colour and alignment
    const auto calls = test::drawCalls(target, "CanvasDrawText");
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].args[1], std::to_string(10 + 200 - 2 - ui::fonts::GetTextWidth("Welcome")));
    EXPECT_EQ(calls[0].args[6], "0xffff0000");
    target.setText(1); // a localized text gives the proxy its inner label's size
    EXPECT_EQ(test::box(target), "1 2 200 20");
}

class TitleTest : public test::DeviceTest {
protected:
    void SetUp() override {
        DeviceTest::SetUp();
        osal::host::clearStrings();
        osal::host::setString(1, "Welcome");
    }
};

TEST_F(TitleTest, TheBandRunsToTheScreensFullWidthFromItsX_ThenCaptionThenWidget) {
    auto inner = std::make_unique<ui::Label>(0, 40, 300, 20);
    inner->setText("body");
    ui::Title title(10, 6, 100, 20, 1, std::move(inner));
    title.setVisible(false); // not consulted
    const auto calls = test::drawCalls(title);
    ASSERT_EQ(calls.size(), 3u);
    EXPECT_EQ(calls[0].str(), "CanvasDrawRect(root, 10, 6, 320, 20, 0xff4fc3f7, 0, 1)");
    EXPECT_EQ(test::texts({calls[1], calls[2]}), (Texts{"Welcome", "body"}));
    const auto& caption = calls[1].args; // centred on the band, in branding colour 2
    EXPECT_EQ(caption[1] + "," + caption[2] + " " + caption[6],
              std::to_string(10 + 50 - ui::fonts::GetTextWidth("Welcome") / 2) + ",6 0xff0f1c2e");

    ui::Title full(1, nullptr);
    EXPECT_EQ(test::box(full), "0 0 320 20"); // the screen's first line
    full.setString("Settings");
    EXPECT_EQ(test::texts(test::drawCalls(full)), Texts{"Settings"});
    osal::host::setString(2, "Sale");
    full.setText(2);
    EXPECT_EQ(test::texts(test::drawCalls(full)), Texts{"Sale"});
    ui::Title unknown(99, nullptr); // an empty band, and the unknown caption logged
    EXPECT_EQ(test::drawCalls(unknown, "CanvasDrawText").size(), 0u);
    EXPECT_EQ(test::drawCalls(unknown, "CanvasDrawRect").size(), 1u);
    EXPECT_EQ(osal::host::exceptionReports().size(), 1u);
}

TEST_F(ProxyLabelTest, ADecoratorDrawsItsWidgetOrNothing) {
    ui::Decorator empty(nullptr);
    EXPECT_TRUE(test::drawCalls(empty).empty());
    auto inner = std::make_unique<ui::Label>(0, 0, 100, 20);
    inner->setText("x");
    ui::Decorator decorator(5, 5, 10, 10, std::move(inner));
    decorator.setVisible(false);
    decorator.setX(50); // the widget stays where it is
    const auto calls = test::drawCalls(decorator, "CanvasDrawText");
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].args[1], "0");
}

} // namespace
