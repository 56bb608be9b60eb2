// The kit's fit check on each way a text can be lost, through the whole stack: the screen built,
// shown on the terminal, and what its frame drew compared with what the widgets were given.
#include <ui/app/Screen.hpp>
#include <ui/kit/Matchers.hpp>
#include <ui/kit/Terminal.hpp>

#include <gtest/gtest.h>

#include <functional>

namespace {

std::shared_ptr<ui::Label> label(unsigned x, unsigned width, unsigned fontSize, const std::string& text,
                                 ui::utils::Origin alignment = ui::utils::Left) {
    auto l = std::make_shared<ui::Label>(x, 40, width, 0);
    l->setFontSize(fontSize);
    l->setAlignment(alignment);
    l->setText(text); // its height: 20 pixels a line, whatever the font size
    return l;
}

struct Loss {
    const char* what;
    std::function<std::shared_ptr<ui::Widget>()> widget;
    std::string found;        // the overflow as described, "" when everything fits
    std::string missing = ""; // a text that leaves no mark, and what ShowsText says of it
    std::string why = "";
};

TEST(KitFitTest, FindsEachKindOfLoss_AndNothingWhereAllFits) {
    const std::vector<Loss> losses = {
        {"a line past the right edge", [] { return label(250, 200, 20, "Present card"); },
         "\"Present card\" at (250, 40) in the main area: 34 px past the right edge"},
        {"a centred line wider than its box: x wraps around",
         [] {
             auto l = label(0, 100, 28, "Approved", ui::utils::Centre);
             l->setHeight(40);
             return l;
         },
         "\"Approved\" at (-6, 46) in the main area: 6 px past the left edge (its x wrapped around)"},
        {"lines past the label's height",
         [] {
             auto l = label(0, 320, 20, "Present, insert or swipe your card to pay for your shopping");
             l->setHeight(20);
             return l;
         },
         "\"Present, insert or swipe your card to pay for your shopping\" at (0, 40) in the main area: lost "
         "\"pay for your shopping\""},
        {"what a wrappable label drops",
         [] {
             auto w = std::make_shared<ui::WrappableLabel>(0, 40, 100, 20, ui::utils::Left, ui::utils::Top);
             w->wrapText("Remove card - Thank you");
             return w;
         },
         "\"Remove card - Thank you\" at (0, 40) in the main area: lost \"card - Thank you\""},
        {"a list item built with size 0",
         [] {
             return std::make_shared<ui::ListBox>(
                 0, 40, 320, 100, std::vector<ui::ListItem>{{0, 0, 0, 0, {1, "Sale", false}}});
         },
         "\"Sale\" at (0, 40) in the main area: lost \"ale\""},
        {"a 14-pixel label wrapped as 20 pixels",
         [] { return label(0, 120, 14, "Enter the amount of the sale"); }, ""},
        {"a label drawn larger than 20 pixels, its height set before its text: no mark",
         [] { return label(0, 320, 28, "Declined"); }, "", "Declined",
         "the screen shows no text; \"Declined\" was laid out, and nothing of it was drawn: hidden, or no "
         "line "
         "of it fits its label's height at its font size (a label draws the lines its height holds, and "
         "setText makes it 20 pixels a line)"},
    };
    ui::kit::Terminal terminal;
    for (const Loss& loss : losses) {
        auto screen = std::make_shared<app::Screen>();
        screen->add(loss.widget());
        terminal.show(screen);
        std::string found;
        for (const auto& overflow : terminal.fit())
            found += (found.empty() ? "" : "; ") + ui::session::describe(overflow);
        EXPECT_EQ(found, loss.found) << loss.what;
        testing::StringMatchResultListener why;
        if (!loss.missing.empty()) {
            EXPECT_FALSE(
                testing::ExplainMatchResult(ui::kit::ShowsText(loss.missing), terminal.texts(), &why));
            EXPECT_EQ(why.str(), loss.why) << loss.what;
        }
    }
}

} // namespace
