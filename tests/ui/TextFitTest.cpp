// The fast line breaking against the straightforward one: every length tried from the longest
// down. Both must give the same lines on any text and width, with the real font and with made-up
// fonts that keep to the one assumption (appending a character never narrows a text) while
// measuring cut sequences in their own odd ways.
#include "Support.hpp"

#include "ReferenceWrap.hpp"
#include "TextFit.hpp"
#include "ui/Label.hpp"
#include "ui/Xui.hpp"

#include <functional>
#include <random>

namespace {

using Lines = std::vector<std::string>;
using test::Measure;
using test::referenceWrapText;

// A made-up font: every complete character has a width of its own (some none at all), every
// byte outside one is drawn as a wide replacement, and a sequence cut short at the very end is
// either drawn so too or not at all.
unsigned madeUpWidth(const char* text, bool dropCutEnd) {
    const auto* p = reinterpret_cast<const unsigned char*>(text);
    unsigned width = 0;
    while (*p) {
        const unsigned n = *p < 0x80                 ? 1
                           : *p >= 0xC2 && *p < 0xE0 ? 2
                           : *p >= 0xE0 && *p < 0xF0 ? 3
                           : *p >= 0xF0 && *p < 0xF5 ? 4
                                                     : 0;
        unsigned have = 1;
        while (n > 1 && have < n && (p[have] & 0xC0) == 0x80)
            ++have;
        if (n == 1) {
            width += *p == '\n' ? 0 : 3 + *p % 9;
            ++p;
        } else if (n > 1 && have == n) {
            width += 7 + p[n - 1] % 11;
            p += n;
        } else if (n > 1 && p[have] == 0 && dropCutEnd) {
            break;
        } else {
            width += 15;
            ++p;
        }
    }
    return width;
}

// Text built to hit every path: words of every kind of byte, runs of spaces, long words.
std::string randomText(std::mt19937& rng) {
    // The first five are plain letters and digits; then controls, whole characters of two, three and
    // four bytes, sequences cut short, bytes outside any character, and a surrogate.
    static const std::vector<std::string> pieces = splitOnDelimeters(
        "a W i m 0 7 . - \n \t \xC3\xA9 \xC3\xBC \xE2\x82\xAC \xE4\xB8\xAD \xF0\x9F\x92\xB3 \xC3 \xE2\x82 "
        "\xF0\x9F\x92 \x80 \xBF \xC0 \xC1 \xF5 \xFF \xED\xA0\x80",
        " ");
    std::uniform_int_distribution<int> words(0, 6), kind(0, 9), piece(0, int(pieces.size()) - 1), space(1, 3);
    std::string text;
    const int count = words(rng);
    for (int w = 0; w < count; ++w) {
        if (w > 0 || kind(rng) == 0)
            text.append(kind(rng) == 0 ? size_t(space(rng)) : 1, ' ');
        const int length = kind(rng) == 0 ? 8 + kind(rng) * 5 : 1 + kind(rng);
        for (int i = 0; i < length; ++i)
            text += kind(rng) < 6 ? pieces[size_t(piece(rng)) % 5] : pieces[size_t(piece(rng))];
    }
    if (kind(rng) == 0)
        text += "  ";
    return text;
}

unsigned randomWidth(std::mt19937& rng, unsigned glyph) {
    switch (std::uniform_int_distribution<int>(0, 5)(rng)) {
    case 0:
        return std::uniform_int_distribution<unsigned>(0, 1)(rng);
    case 1:
        return glyph - 2 + std::uniform_int_distribution<unsigned>(0, 4)(rng);
    case 2:
        return 0xFFFFFFFFu;
    default:
        return std::uniform_int_distribution<unsigned>(20, 320)(rng);
    }
}

class TextFitTest : public test::PlatformTest {};

TEST_F(TextFitTest, FastBreakingGivesTheLinesOfTheDownwardSearch) {
    std::mt19937 rng(20261122);
    const std::vector<std::pair<std::string, Measure>> fonts = {
        {"font", [](const char* s) { return ui::fonts::GetTextWidth(s); }},
        {"replacing", [](const char* s) { return madeUpWidth(s, false); }},
        {"dropping", [](const char* s) { return madeUpWidth(s, true); }}};
    for (int i = 0; i < 24000; ++i) {
        const auto& [name, measure] = fonts[size_t(i) % fonts.size()];
        // First the empty text; then a long word whose line holds all but its last character,
        // found only once the gallop has run past the word's end.
        const std::string text = i < 3 ? std::string() : i < 6 ? std::string(70, 'a') : randomText(rng);
        const unsigned width = i < 3 || i >= 6 ? randomWidth(rng, name == "font" ? 10 : 9)
                                               : measure(std::string(69, 'a').c_str());
        const Lines expected = referenceWrapText(text, width, measure);
        ASSERT_EQ(ui::detail::wrapText(text, width, measure), expected)
            << "case " << i << ", " << name << ", width " << width << ", text "
            << testing::PrintToString(text);
        if (name == "font") { // and through the public function
            ASSERT_EQ(WrapText(text, width), expected);
        }
    }
}

// What a terminal pays for a long word: the prefixes measured. The search gallops from the last
// line's length and bisects, whole characters first; these are its counts, and a search that
// measured more (a step that does not double, a character taken byte by byte) is slower on a
// terminal whatever it gives.
TEST_F(TextFitTest, ALongWordCostsTheMeasurementsOfTheSearch) {
    std::string narrowThenWide, emoji, accents, euros, strays;
    for (int i = 0; i < 10; ++i)
        narrowThenWide += std::string(100, 'i') + std::string(100, 'W');
    for (int i = 0; i < 500; ++i) {
        emoji += "\xF0\x9F\x92\xB3\x80"; // a card, and a byte outside any character
        accents += "\xC3\xA9\x80";       // an e acute, and the same
        euros += "\xE2\x82\xAC\x80";     // a euro sign, and the same
        // Bytes no character starts with, each one of its own; each length's lowest lead, whole.
        strays += "a\x80\xF8\x80\xC0\x80\xE0\x80\x80\xF0\x80\x80\x80";
    }
    const struct {
        std::string text;
        unsigned width;
        int measurements;
    } cases[] = {{std::string(2000, 'a'), 300, 147},
                 // a long word whose line holds all but its last character
                 {std::string(70, 'a'), ui::fonts::GetTextWidth(std::string(69, 'a').c_str()), 13},
                 {std::string(60, 'a'), 70, 29},  // short enough to be measured whole first
                 {std::string(64, 'a'), 1000, 1}, // and the longest such text, which fits, once
                 {std::string(65, 'a'), 1000, 8}, // one byte too long for that: by prefixes, though all fits
                 {narrowThenWide, 300, 460},
                 {emoji, 300, 179},
                 {accents, 300, 114},
                 {euros, 300, 146},
                 {strays, 300, 974}};
    for (const auto& c : cases) {
        int measured = 0;
        ui::detail::wrapText(c.text, c.width, [&](const char* s) {
            ++measured;
            return ui::fonts::GetTextWidth(s);
        });
        EXPECT_EQ(measured, c.measurements)
            << testing::PrintToString(c.text.substr(0, 12)) << "... at " << c.width;
    }
}

} // namespace
