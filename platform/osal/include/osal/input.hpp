// Keys of the terminal's keypad, and their conversion from the graphics library's key codes.
#pragma once

#include <string>

namespace device::input {

enum Key : int {
    KEY_NONE = 0,
    KEY_1 = 1,
    KEY_2,
    KEY_3,
    KEY_4,
    KEY_5,
    KEY_6,
    KEY_7,
    KEY_8,
    KEY_9,
    KEY_0 = 10,
    KEY_ENTER,
    KEY_CANCEL,
    KEY_CLEAR,
    KEY_UP,
    KEY_DOWN,
    KEY_MENU,
    KEY_ALPHA,
    KEY_STAR,
    KEY_HASH,
    KEY_F1,
    KEY_F2,
    KEY_F3,
    KEY_F4,
    KEY_POWER
};

// Unknown codes give KEY_NONE.
Key getKeyFromSystemKey(int code);
// The character of a digit, star or hash key ("0" to "9", "*", "#"); empty for the others.
std::string getKeyString(Key key);
// A readable name of any key ("1", "ENTER", "F2"), for logs and tools.
std::string getKeyName(Key key);

} // namespace device::input
