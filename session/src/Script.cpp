#include "ui/session/Script.hpp"

#include <osal/host.hpp>
#include <xui.h>

#include <boost/date_time/posix_time/posix_time.hpp>

#include <fstream>
#include <sstream>

namespace ui::session {

const std::vector<KeyName>& keys() {
    static const std::vector<KeyName> table = {{"0", '0'},
                                               {"1", '1'},
                                               {"2", '2'},
                                               {"3", '3'},
                                               {"4", '4'},
                                               {"5", '5'},
                                               {"6", '6'},
                                               {"7", '7'},
                                               {"8", '8'},
                                               {"9", '9'},
                                               {"ENTER", XUI_KEY_ENTER},
                                               {"CANCEL", XUI_KEY_CANCEL},
                                               {"CLEAR", XUI_KEY_CLEAR},
                                               {"UP", XUI_KEY_UP},
                                               {"DOWN", XUI_KEY_DOWN},
                                               {"MENU", XUI_KEY_MENU},
                                               {"ALPHA", XUI_KEY_ALPHA},
                                               {"STAR", XUI_KEY_STAR},
                                               {"HASH", XUI_KEY_HASH},
                                               {"F1", XUI_KEY_F1},
                                               {"F2", XUI_KEY_F1 + 1},
                                               {"F3", XUI_KEY_F1 + 2},
                                               {"F4", XUI_KEY_F1 + 3},
                                               {"POWER", XUI_KEY_POWER}};
    return table;
}

int keyCode(const std::string& name) {
    for (const auto& key : keys())
        if (key.name == name)
            return key.code;
    return XUI_KEY_NONE;
}

int keyForTypedCharacter(char typed) {
    if (typed >= '0' && typed <= '9')
        return keyCode(std::string(1, typed));
    return typed == '*' ? keyCode("STAR") : typed == '#' ? keyCode("HASH") : XUI_KEY_NONE;
}

const std::vector<CommandHelp>& commandHelp() {
    static const std::vector<CommandHelp> help = {
        {"key NAME", "one key: 0-9, ENTER, CANCEL, CLEAR, UP, DOWN, MENU, ALPHA, STAR, HASH, F1-F4, POWER"},
        {"keys DIGITS", "digits pressed one after another (quickly: a multi-tap repeat)"},
        {"wait MILLISECONDS", "let time pass, 0 to 60000"},
        {"tap [approved|declined]", "a contactless card; approved unless declined"},
        {"battery LEVEL", "0 to 4 charge, 5 or 6 charging"},
        {"ethernet on|off", "the cable plugged in or not"},
        {"signal PERCENT", "mobile signal strength, 0 to 100"},
        {"flight on|off", "flight mode (the signal bars go dark)"},
        {"offline COUNT", "transactions waiting to be sent, 0 to 9999"},
        {"update on|off", "an application update waiting"},
        {"clock YYYY-MM-DD HH:MM", "the terminal's local time"},
        {"shot NAME", "a picture of the screen as it is now, named (a-z, 0-9, _ and -)"}};
    return help;
}

std::string scriptHelp() {
    std::string out = "Session scripts: a command a line, '#' starts a comment.\n";
    for (const auto& command : commandHelp()) {
        out += "  " + command.form;
        out += std::string(command.form.size() < 26 ? 26 - command.form.size() : 1, ' ');
        out += command.meaning + "\n";
    }
    return out;
}

namespace {

class LineParser {
public:
    LineParser(const std::string& name, int line, std::vector<std::string> words)
        : name_(name), line_(line), words_(std::move(words)) {}

    [[noreturn]] void fail(const std::string& what, const std::string& expected) const {
        throw ScriptError(name_ + ":" + std::to_string(line_) + ": " + what + "; expected " + expected);
    }

    void arguments(size_t count, const std::string& expected) const {
        if (words_.size() - 1 != count)
            fail(words_[0] + " takes " + std::to_string(count) + " argument" + (count == 1 ? "" : "s") +
                     ", not " + std::to_string(words_.size() - 1),
                 expected);
    }

    long long number(const std::string& word, long long min, long long max,
                     const std::string& expected) const {
        long long value = 0;
        size_t used = 0;
        try {
            value = std::stoll(word, &used);
        } catch (const std::exception&) {
            used = 0;
        }
        if (used != word.size() || word.empty() || value < min || value > max)
            fail("\"" + word + "\" is not a number from " + std::to_string(min) + " to " +
                     std::to_string(max),
                 expected);
        return value;
    }

    bool onOff(const std::string& word, const std::string& expected) const {
        if (word != "on" && word != "off")
            fail("\"" + word + "\" is neither on nor off", expected);
        return word == "on";
    }

    const std::vector<std::string>& words() const { return words_; }

private:
    const std::string& name_;
    int line_;
    std::vector<std::string> words_;
};

Command parseLine(const LineParser& p) {
    const auto& w = p.words();
    Command c;
    const std::string& verb = w[0];
    if (verb == "key") {
        p.arguments(1, "key NAME, with NAME one of 0-9, ENTER, CANCEL, CLEAR, UP, DOWN, F1-F4...");
        if (keyCode(w[1]) == XUI_KEY_NONE)
            p.fail("unknown key \"" + w[1] + "\"",
                   "one of 0-9, ENTER, CANCEL, CLEAR, UP, DOWN, MENU, ALPHA, STAR, "
                   "HASH, F1-F4, POWER");
        c.kind = Command::Key;
        c.word = w[1];
    } else if (verb == "keys") {
        p.arguments(1, "keys DIGITS, for example keys 1250");
        if (w[1].find_first_not_of("0123456789") != std::string::npos)
            p.fail("\"" + w[1] + "\" holds something other than digits",
                   "keys DIGITS, for example keys 1250");
        c.kind = Command::Keys;
        c.word = w[1];
    } else if (verb == "wait") {
        p.arguments(1, "wait MILLISECONDS");
        c.kind = Command::Wait;
        c.number = p.number(w[1], 0, 60000, "wait MILLISECONDS");
    } else if (verb == "tap") {
        if (w.size() > 2 || (w.size() == 2 && w[1] != "approved" && w[1] != "declined"))
            p.fail("a tap is approved or declined", "tap, tap approved or tap declined");
        c.kind = Command::Tap;
        c.on = w.size() == 1 || w[1] == "approved";
    } else if (verb == "battery" || verb == "signal" || verb == "offline") {
        const std::string expected = verb + (verb == "battery"  ? " 0-6"
                                             : verb == "signal" ? " PERCENT"
                                                                : " COUNT");
        p.arguments(1, expected);
        c.kind = verb == "battery" ? Command::Battery : verb == "signal" ? Command::Signal : Command::Offline;
        c.number = p.number(w[1], 0, verb == "battery" ? 6 : verb == "signal" ? 100 : 9999, expected);
    } else if (verb == "ethernet" || verb == "flight" || verb == "update") {
        p.arguments(1, verb + " on|off");
        c.kind = verb == "ethernet" ? Command::Ethernet
                 : verb == "flight" ? Command::Flight
                                    : Command::Update;
        c.on = p.onOff(w[1], verb + " on|off");
    } else if (verb == "clock") {
        const std::string expected = "clock YYYY-MM-DD HH:MM";
        p.arguments(2, expected);
        try {
            const auto at = boost::posix_time::time_from_string(w[1] + " " + w[2] + ":00");
            c.number = (at - boost::posix_time::ptime(boost::gregorian::date(1970, 1, 1))).total_seconds();
        } catch (const std::exception&) {
            p.fail("\"" + w[1] + " " + w[2] + "\" is not a date and time", expected);
        }
        c.kind = Command::Clock;
        c.word = w[1] + " " + w[2];
    } else if (verb == "shot") {
        p.arguments(1, "shot NAME");
        if (w[1].find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789_-") != std::string::npos)
            p.fail("\"" + w[1] + "\" is not a file name", "shot NAME of lower-case letters, digits, _ and -");
        c.kind = Command::Shot;
        c.word = w[1];
    } else {
        p.fail(
            "unknown command \"" + verb + "\"",
            "one of key, keys, wait, tap, battery, ethernet, signal, flight, offline, update, clock, shot");
    }
    return c;
}

} // namespace

std::vector<Command> parseScript(std::istream& in, const std::string& name) {
    std::vector<Command> commands;
    std::string raw;
    for (int line = 1; std::getline(in, raw); ++line) {
        std::string text = raw.substr(0, raw.find('#'));
        std::istringstream split(text);
        std::vector<std::string> words;
        for (std::string word; split >> word;)
            words.push_back(word);
        if (words.empty())
            continue;
        Command c = parseLine(LineParser(name, line, words));
        c.line = line;
        c.text = words[0];
        for (size_t i = 1; i < words.size(); ++i)
            c.text += " " + words[i];
        commands.push_back(std::move(c));
    }
    return commands;
}

namespace {

[[noreturn]] void cannot(const std::string& what) {
    throw ScriptError("the application has no " + what);
}

} // namespace

void Application::tapCard(bool) {
    cannot("card reader");
}
void Application::setBattery(int) {
    cannot("battery");
}
void Application::setEthernet(bool) {
    cannot("Ethernet");
}
void Application::setSignal(unsigned) {
    cannot("signal");
}
void Application::setFlightMode(bool) {
    cannot("flight mode");
}
void Application::setOfflineCount(int) {
    cannot("offline store");
}
void Application::setUpdateAvailable(bool) {
    cannot("update");
}
void Application::refreshHeader() {
    graphics().updateHeader();
}

void apply(const Command& c, Application& app, FrontEnd& frontEnd) {
    switch (c.kind) {
    case Command::Key:
        frontEnd.press(keyCode(c.word));
        break;
    case Command::Keys:
        for (char digit : c.word)
            frontEnd.press(keyForTypedCharacter(digit));
        break;
    case Command::Wait:
        frontEnd.wait(std::chrono::milliseconds(c.number));
        break;
    case Command::Tap:
        app.tapCard(c.on);
        break;
    case Command::Battery:
        app.setBattery(int(c.number));
        break;
    case Command::Ethernet:
        app.setEthernet(c.on);
        break;
    case Command::Signal:
        app.setSignal(unsigned(c.number));
        break;
    case Command::Flight:
        app.setFlightMode(c.on);
        break;
    case Command::Offline:
        app.setOfflineCount(int(c.number));
        break;
    case Command::Update:
        app.setUpdateAvailable(c.on);
        break;
    case Command::Clock:
        osal::host::pinClock(c.number);
        app.refreshHeader();
        break;
    case Command::Shot:
        frontEnd.shot(c.word);
        break;
    }
}

std::vector<Command> loadScript(const std::string& path) {
    std::ifstream in(path);
    if (!in)
        throw ScriptError(path + ": cannot read the script");
    const auto slash = path.find_last_of('/');
    return parseScript(in, slash == std::string::npos ? path : path.substr(slash + 1));
}

} // namespace ui::session
