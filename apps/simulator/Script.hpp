// Session scripts: what a person at the terminal does, one line at a time, in a plain text a
// person writes and reads. Each line is a command and its arguments; '#' starts a comment.
//
//   key ENTER        one key: 0-9, ENTER, CANCEL, CLEAR, UP, DOWN, MENU, ALPHA, STAR, HASH,
//                    F1-F4, POWER
//   keys 1250        digits pressed one after another (quickly: a multi-tap repeat)
//   wait 800         milliseconds
//   tap              a contactless card, approved ("tap declined" for a declined one)
//   battery 3        0 to 4 charge, 5 or 6 charging
//   ethernet on      on or off (likewise flight, update)
//   signal 80        percent
//   offline 5        transactions waiting to be sent
//   clock 2026-11-22 09:30
//   shot receipt     a picture of the screen as it is now, named
#pragma once

#include <istream>
#include <stdexcept>
#include <string>
#include <vector>

namespace demo {

struct Command {
    enum Kind { Key, Keys, Wait, Tap, Battery, Ethernet, Signal, Flight, Offline, Update, Clock, Shot };
    Kind kind = Key;
    int line = 0;
    std::string text;     // the line as written, without its comment
    std::string word;     // key name, digits, shot name, clock text
    long long number = 0; // wait, battery, signal, offline, clock (local seconds since 1970)
    bool on = false;      // ethernet, flight, update; tap: approved
};

// "demo.session:12: unknown command "prss"; expected one of key, keys, ..."
class ScriptError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Throws ScriptError naming the first bad line.
std::vector<Command> parseScript(std::istream& in, const std::string& name);
std::vector<Command> loadScript(const std::string& path);

// The keypad key names a script knows, for the front ends' own mapping.
const std::vector<std::string>& keyNames();

} // namespace demo
