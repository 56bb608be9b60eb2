// Session scripts: what a person at the terminal does, one line at a time, in a plain text a
// person writes and reads. Each line is a command and its arguments; '#' starts a comment.
// scriptHelp() lists the commands; apply() is the one place where a command meets the
// application, whichever front end plays it (the headless Session, the simulator's
// window).
#pragma once

#include <ui/ui.hpp>

#include <chrono>
#include <istream>
#include <stdexcept>
#include <string>
#include <vector>

namespace ui::session {

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

// The terminal's keys: the one table of their names and of the codes Xui delivers for them.
struct KeyName {
    std::string name;
    int code;
};
const std::vector<KeyName>& keys();
// XUI_KEY_NONE for a name that is not a key.
int keyCode(const std::string& name);
// The key a character typed on a PC keyboard stands for, whatever its layout: a digit, '*'
// for STAR and '#' for HASH; XUI_KEY_NONE for any other character.
int keyForTypedCharacter(char typed);

// The script language, a command a line with its arguments and what it does.
struct CommandHelp {
    std::string form;
    std::string meaning;
};
const std::vector<CommandHelp>& commandHelp();
std::string scriptHelp();

// What a front end does itself: put keys into the keypad, let time pass, take a picture.
class FrontEnd {
public:
    virtual ~FrontEnd() = default;
    virtual void press(int keyCode) = 0;
    virtual void wait(std::chrono::milliseconds time) = 0;
    virtual void shot(const std::string& name) = 0;
};

// The header's states that a front end may change (a window's hotkeys, a page's buttons).
struct HeaderFeatures {
    bool battery = false;
    bool ethernet = false;
    bool signal = false;
    bool flightMode = false;
    bool offlineCount = false;
    bool updateAvailable = false;
};
// What the header shows now.
struct HeaderStatus {
    int battery = 0; // 0-6, as the header's battery takes it
    bool ethernet = false;
    unsigned signal = 0; // percent
    bool flightMode = false;
    int offlineCount = 0;
    bool updateAvailable = false;
};

// What a script's lines reach in the application: the card reader and the status its header
// shows. Each is called on the thread that plays the script; what the application does with it
// is its own (the demo hands it to its application thread). A line the application has no use
// for throws ScriptError (the defaults).
class Application {
public:
    virtual ~Application() = default;

    virtual ui::IGraphics& graphics() = 0;
    virtual void tapCard(bool approved);
    virtual void setBattery(int level);
    virtual void setEthernet(bool connected);
    virtual void setSignal(unsigned percent);
    virtual void setFlightMode(bool on);
    virtual void setOfflineCount(int count);
    virtual void setUpdateAvailable(bool available);
    // The clock line has moved the pinned clock: redraw the header (default: updateHeader).
    virtual void refreshHeader();
    // Returns once the application has done all that the last line started on threads of its
    // own (default: at once). What the library's threads do is waited for without it.
    virtual void waitUntilIdle() {}
    // The state last asked of the contactless indicator: while it is Idle, a session pictures a
    // step once the idle flash is lit. The default (Ready) never waits for the flash.
    virtual ui::State indicated() const { return ui::State::Ready; }
    // Keys the application's screens have taken so far. The default (-1): not counted, and a
    // front end waits for the keypad to have read every key instead.
    virtual int keysTaken() const { return -1; }
    // True once the application has ended (a power key, say): a window closes.
    virtual bool finished() const { return false; }
    // The header's states a front end offers to change, and their values now (defaults: none).
    virtual HeaderFeatures headerFeatures() const { return {}; }
    virtual HeaderStatus headerStatus() const { return {}; }
};

// Plays one command: the application's part here, the front end's part through it.
void apply(const Command& command, Application& app, FrontEnd& frontEnd);

} // namespace ui::session
