#include "Script.hpp"

#include <boost/date_time/posix_time/posix_time.hpp>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace demo {

const std::vector<std::string>& keyNames() {
    static const std::vector<std::string> names = {
        "0",     "1",  "2",    "3",    "4",     "5",    "6",    "7",  "8",  "9",  "ENTER", "CANCEL",
        "CLEAR", "UP", "DOWN", "MENU", "ALPHA", "STAR", "HASH", "F1", "F2", "F3", "F4",    "POWER"};
    return names;
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
        const auto& names = keyNames();
        if (std::find(names.begin(), names.end(), w[1]) == names.end())
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

std::vector<Command> loadScript(const std::string& path) {
    std::ifstream in(path);
    if (!in)
        throw ScriptError(path + ": cannot read the script");
    const auto slash = path.find_last_of('/');
    return parseScript(in, slash == std::string::npos ? path : path.substr(slash + 1));
}

} // namespace demo
