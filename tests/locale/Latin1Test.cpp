// Multi-tap filtering keeps the "C" locale's character classes whatever locale the application
// sets. A process of its own: the locale is set before any thread starts, as an application
// would, and no other test sees it.
#include "ui/TextEntry.hpp"

#include <gtest/gtest.h>

#include <clocale>

namespace {

const char* latin1 = nullptr;

TEST(Latin1LocaleTest, TheBytesOfPoundNotAndBrokenBarAreNoLettersNorSymbols) {
    if (!latin1)
        GTEST_SKIP() << "no Latin-1 locale on this system (./run generates en_GB.ISO-8859-1)";
    using device::input::KEY_0;
    using device::input::KEY_1;
    const CharacterKeyBinding binding;
    // In Latin-1, 0xC2 is a letter and 0xA3, 0xAC and 0xA6 are symbols: the UTF-8 bytes of
    // "£", "¬" and "¦" would pass one at a time.
    EXPECT_EQ(binding.getCharacterSetFromKey(KEY_1, CharacterSet(Characters | Symbols)), "!\"$%^&*()");
    EXPECT_EQ(binding.getCharacterSetFromKey(KEY_0, Symbols), "._',/\\|-+@~?<>#=:;[]{}`");
    EXPECT_EQ(binding.getCharacterSetFromKey(KEY_0, Characters), "");
}

} // namespace

int main(int argc, char** argv) {
    for (const char* name : {"en_GB.ISO-8859-1", "en_GB.iso88591", "en_US.ISO-8859-1", "de_DE.ISO-8859-1"})
        if ((latin1 = std::setlocale(LC_ALL, name)) != nullptr)
            break;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
