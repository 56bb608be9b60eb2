#include "ui/TextEntry.hpp"

using device::input::Key;

namespace {

bool isDigitKey(Key key) {
    return key >= device::input::KEY_1 && key <= device::input::KEY_0;
}

// The "C" locale's classes whatever locale the application has set: in Latin-1 the bytes of
// a UTF-8 "£" would otherwise pass as a letter and a symbol.
bool isLetter(unsigned char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
bool isDigit(unsigned char c) {
    return c >= '0' && c <= '9';
}
bool isSymbol(unsigned char c) {
    return c > ' ' && c < 0x7F && !isLetter(c) && !isDigit(c);
}

bool inSet(unsigned char c, unsigned set) {
    return ((set & Characters) && isLetter(c)) || ((set & Numbers) && isDigit(c)) ||
           ((set & Symbols) && isSymbol(c));
}

// The multi-tap cycle of the one field being edited. Only the keypad thread types, one key at a
// time, so it needs no lock.
struct MultiTap {
    unsigned index = 0;
    Key lastKey = device::input::KEY_NONE;
    bool characterNeedsReplaced = false;
};
MultiTap tap;

constexpr int64_t kRepeatMs = 750;

// Steps 2 to 6 of a digit key press: the character, and the cycle moved on.
std::string nextCharacter(Key key, const std::string& characters, ITimer& timer) {
    const int64_t elapsed = timer.elapsed();
    if (tap.index >= characters.size())
        tap.index = 0;
    if (key != tap.lastKey || elapsed >= kRepeatMs) {
        tap.index = 0;
        tap.characterNeedsReplaced = false;
    } else if (characters.size() > 1) {
        tap.characterNeedsReplaced = true;
    }
    // For an empty string this reads the terminating NUL: intended, see the header.
    const std::string character(1, characters.c_str()[tap.index]);
    ++tap.index;
    tap.lastKey = key;
    timer.restart();
    return character;
}

} // namespace

CharacterKeyBinding::CharacterKeyBinding()
    : table_{
          {device::input::KEY_0, "0._',/\\|-+@~?<>#=:;[]{}\xC2\xAC`\xC2\xA6"},
          {device::input::KEY_1, "1!\"\xC2\xA3$%^&*()"},
          {device::input::KEY_2, "2ABCabc"},
          {device::input::KEY_3, "3DEFdef"},
          {device::input::KEY_4, "4GHIghi"},
          {device::input::KEY_5, "5JKLjkl"},
          {device::input::KEY_6, "6MNOmno"},
          {device::input::KEY_7, "7PQRSpqrs"},
          {device::input::KEY_8, "8TUVtuv"},
          {device::input::KEY_9, "9WXYZwxyz"},
      } {}

CharacterKeyBinding::CharacterKeyBinding(std::map<Key, std::string> table) : table_(std::move(table)) {}

unsigned CharacterKeyBinding::getTotalCharacterBindings(Key key) const {
    const auto it = table_.find(key);
    return it == table_.end() ? 0 : static_cast<unsigned>(it->second.size());
}

std::string CharacterKeyBinding::getIndexedCharacterFromKey(Key key, unsigned index) const {
    const auto it = table_.find(key);
    if (it == table_.end() || index >= it->second.size())
        return {};
    return std::string(1, it->second[index]);
}

std::string CharacterKeyBinding::getCharacterSetFromKey(Key key, CharacterSet set) const {
    const auto it = table_.find(key);
    if (it == table_.end())
        return {};
    std::string kept;
    for (const char c : it->second)
        if (inSet(static_cast<unsigned char>(c), set))
            kept += c;
    return kept;
}

std::string getCharacterFromKeyPress(Key key, const std::string& characters, ITimer& timer) {
    if (!isDigitKey(key))
        return {};
    return nextCharacter(key, characters, timer);
}

std::string appendCharacterFromKeyPress(Key key, const std::string& characters, ITimer& timer,
                                        const std::string& text) {
    std::string result = text;
    const std::string character = isDigitKey(key) ? nextCharacter(key, characters, timer) : std::string();
    if (tap.characterNeedsReplaced) {
        if (!result.empty())
            result.pop_back();
        tap.characterNeedsReplaced = false;
    }
    return result + character;
}

namespace ui::detail {

std::string multiTap(const std::string& text, const Key& key, unsigned mask, ITimer& timer,
                     const ICharacterKeyBinding& binding) {
    const std::string characters = binding.getCharacterSetFromKey(key, static_cast<CharacterSet>(mask));
    return appendCharacterFromKeyPress(key, characters, timer, text);
}

} // namespace ui::detail
