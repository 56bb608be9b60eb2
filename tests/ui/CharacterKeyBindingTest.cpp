#include "ui/TextEntry.hpp"

#include <osal/host.hpp>

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using namespace device::input;

// The multi-tap cycle runs on the stand-in's virtual clock: presses are instantaneous unless
// the test advances time, and every test starts a new character.
class MultiTapTest : public ::testing::Test {
protected:
    void SetUp() override {
        osal::host::useVirtualTime(true);
        osal::host::advanceTime(750ms);
    }
    void TearDown() override { osal::host::reset(); }

    // Presses key over characters and returns the text after it.
    std::string press(Key key, const std::string& characters) {
        text = appendCharacterFromKeyPress(key, characters, timer, text);
        return text;
    }

    Timer timer;
    std::string text;
};

TEST(CharacterKeyBindingTest, DefaultTableHoldsTheTerminalsStrings_FiltersKeepOnlyTheAllowedClasses) {
    const CharacterKeyBinding binding;
    EXPECT_EQ(binding.getTotalCharacterBindings(KEY_0), 28u);
    EXPECT_EQ(binding.getTotalCharacterBindings(KEY_1), 12u);
    EXPECT_EQ(binding.getTotalCharacterBindings(KEY_7), 9u);
    EXPECT_EQ(binding.getTotalCharacterBindings(KEY_ENTER), 0u);
    std::string zero;
    for (unsigned i = 0; i < 28; ++i)
        zero += binding.getIndexedCharacterFromKey(KEY_0, i);
    EXPECT_EQ(zero, "0._',/\\|-+@~?<>#=:;[]{}\xC2\xAC`\xC2\xA6");
    EXPECT_EQ(binding.getIndexedCharacterFromKey(KEY_0, 28), "");
    EXPECT_EQ(binding.getIndexedCharacterFromKey(KEY_ENTER, 0), "");
    struct Case {
        Key key;
        unsigned set;
        std::string kept;
    };
    const Case cases[] = {{KEY_2, Characters, "ABCabc"},
                          {KEY_2, Numbers, "2"},
                          {KEY_2, Symbols, ""},
                          {KEY_2, Characters | Numbers, "2ABCabc"},
                          {KEY_9, Characters | Numbers, "9WXYZwxyz"}, // the classes' far ends
                          {KEY_1, Symbols, "!\"$%^&*()"},             // £ is two bytes of no class
                          {KEY_0, Symbols, "._',/\\|-+@~?<>#=:;[]{}`"},
                          {KEY_0, Characters | Numbers | Symbols, "0._',/\\|-+@~?<>#=:;[]{}`"},
                          {KEY_ENTER, Characters | Numbers | Symbols, ""}};
    for (const auto& c : cases)
        EXPECT_EQ(binding.getCharacterSetFromKey(c.key, CharacterSet(c.set)), c.kept)
            << c.key << "/" << c.set;
    const CharacterKeyBinding custom({{KEY_3, "3x \x7F~"}}); // a space and DEL are no symbols
    EXPECT_EQ(custom.getCharacterSetFromKey(KEY_3, Characters), "x");
    EXPECT_EQ(custom.getCharacterSetFromKey(KEY_3, Symbols), "~");
    EXPECT_EQ(custom.getTotalCharacterBindings(KEY_2), 0u);
}

TEST_F(MultiTapTest, RepeatsWithin750msCycle_AndAPauseOrAnotherKeyStartsANewCharacter) {
    EXPECT_EQ(press(KEY_2, "2ABCabc"), "2");
    osal::host::advanceTime(749ms);
    EXPECT_EQ(press(KEY_2, "2ABCabc"), "A");
    osal::host::advanceTime(749ms); // measured from the previous press, not the first
    EXPECT_EQ(press(KEY_2, "2ABCabc"), "B");
    osal::host::advanceTime(750ms);
    EXPECT_EQ(press(KEY_2, "2ABCabc"), "B2");
    EXPECT_EQ(press(KEY_3, "3DEFdef"), "B23");
    EXPECT_EQ(press(KEY_3, "3DEFdef"), "B2D");
}

TEST_F(MultiTapTest, ACycleWrapsToItsFirstCharacter_AlsoWhenTheStringShrinks) {
    for (int i = 0; i < 3; ++i)
        press(KEY_2, "2AB");
    EXPECT_EQ(press(KEY_2, "2AB"), "2");
    press(KEY_2, "2AB");                // A; the next index is 2
    EXPECT_EQ(press(KEY_2, "2A"), "2"); // past the shorter string: back to its start
}

TEST_F(MultiTapTest, NonDigitKeys_ChangeNothing_ButAPendingReplacementDropsTheLastByte) {
    text = "ab";
    EXPECT_EQ(getCharacterFromKeyPress(KEY_ENTER, "xyz", timer), "");
    EXPECT_EQ(press(KEY_ENTER, "xyz"), "ab");
    EXPECT_EQ(getCharacterFromKeyPress(KEY_2, "2A", timer), "2");
    EXPECT_EQ(getCharacterFromKeyPress(KEY_2, "2A", timer), "A"); // a replacement is now pending
    EXPECT_EQ(press(KEY_ENTER, "xyz"), "a");
    EXPECT_EQ(press(KEY_ENTER, "xyz"), "a");
}

} // namespace
