#include "Support.hpp"

#include "Demo.hpp"
#include <ui/session/Script.hpp>

#include <sstream>

namespace {

// The demo's own session, replayed in each language it speaks and as a translation 40 % longer
// would show it: every step's screen and the LED-and-tone timeline against the reviewed ones
// (tests/golden/demo, demo_de, demo_pseudo), and no text that does not fit.
struct Reviewed {
    std::string folder; // under tests/golden
    ui::simulator::HeadlessOptions options;
};
void PrintTo(const Reviewed& reviewed, std::ostream* out) {
    *out << reviewed.folder;
}

class DemoSessionTest : public test::PlatformTest, public testing::WithParamInterface<Reviewed> {
protected:
    DemoSessionTest() { openDisplay = false; }
};

TEST_P(DemoSessionTest, EveryStepFitsAndMatchesTheReviewedScreensAndTimeline) {
    osal::host::loadStrings("res/strings/en.txt");
    const auto result = ui::simulator::playHeadless(ui::session::loadScript("demo/demo.session"),
                                                    GetParam().options, demo::program(), demo::build);
    ASSERT_GT(result.steps.size(), 50u);
    for (const auto& step : result.steps)
        EXPECT_THAT(step.overflows, testing::IsEmpty())
            << "step " << step.number << " (" << step.action << ")";
    EXPECT_TRUE(ui::kit::sessionMatchesGoldens(result.steps, GetParam().folder));
}

INSTANTIATE_TEST_SUITE_P(Languages, DemoSessionTest,
                         testing::Values(Reviewed{"demo", {}}, Reviewed{"demo_de", {"", 0, "de"}},
                                         Reviewed{"demo_pseudo", {"", 1.4, ""}}),
                         [](const testing::TestParamInfo<Reviewed>& reviewed) {
                             return reviewed.param.folder;
                         });

// What the demo does beyond its own session: a tap on the idle screen starts a sale.
TEST(DemoTest, ATapOnTheIdleScreenStartsASale) {
    ui::kit::Platform platform;
    osal::host::loadStrings("res/strings/en.txt");
    std::istringstream script("tap\n");
    const auto result = ui::simulator::playHeadless(ui::session::parseScript(script, "test.session"), {},
                                                    demo::program(), demo::build);
    // The sale's entry screen, below a header of other values than the session's at that step.
    const auto below = [](const xui_host::Pixels& p) {
        return std::vector(p.argb.begin() + 32 * 320, p.argb.end());
    };
    EXPECT_EQ(below(result.steps.back().screen),
              below(xui_host::loadPng(UI_GOLDEN_DIR "/demo/10_key_ENTER.png")));
}

} // namespace
