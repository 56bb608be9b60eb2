#include "ui/session/Fit.hpp"

#include <osal/host.hpp>

#include <algorithm>
#include <cstdint>
#include <optional>

namespace ui::session {

namespace {

std::string bare(const std::string& text) {
    std::string out;
    for (char c : text)
        if (c != ' ')
            out += c;
    return out;
}

// A text as a frame drew it, without its spaces, and where it began: Xui takes unsigned
// coordinates, and one that wrapped around is a negative one.
struct Drawn {
    DrawnText drawn;
    std::string bare;
    int64_t x = 0;
    int64_t y = 0;
};

std::vector<Drawn> drawnIn(const std::vector<xui_host::Call>& calls) {
    std::vector<Drawn> out;
    for (auto& d : drawnTexts(calls)) {
        const int64_t x = int32_t(d.x), y = int32_t(d.y);
        std::string b = bare(d.text);
        out.push_back({std::move(d), std::move(b), x, y});
    }
    return out;
}

// The part of text left once its first `characters` non-space characters are taken.
std::string after(const std::string& text, size_t characters) {
    size_t i = 0;
    for (; i < text.size() && characters > 0; ++i)
        characters -= text[i] != ' ';
    while (i < text.size() && text[i] == ' ')
        ++i;
    return text.substr(i);
}

void pastEdges(const std::vector<Drawn>& texts, unsigned width, unsigned height, const std::string& area,
               std::vector<Overflow>& out) {
    for (const Drawn& d : texts) {
        const auto report = [&](const std::string& how) {
            out.push_back({Overflow::PastEdge, d.drawn.text, int(d.x), int(d.y), area, how});
        };
        // A coordinate wrapped from a small negative number says by how much; one wrapped from
        // a huge unsigned one (half of a negative height, say) is simply nowhere.
        const auto before = [](int64_t at, const char* edge, const char* axis) {
            return (at > -(int64_t(1) << 24) ? std::to_string(-at) + " px" : std::string("far")) +
                   " past the " + edge + " edge (its " + axis + " wrapped around)";
        };
        const int64_t right = d.x + xui_host::textWidth(d.drawn.font, d.drawn.size, d.drawn.text);
        if (d.x < 0)
            report(before(d.x, "left", "x"));
        else if (right > int64_t(width))
            report(std::to_string(right - int64_t(width)) + " px past the right edge");
        if (d.y < 0)
            report(before(d.y, "top", "y"));
        else if (d.y + int64_t(d.drawn.size) > int64_t(height))
            report(std::to_string(d.y + int64_t(d.drawn.size) - int64_t(height)) +
                   " px past the bottom edge");
    }
}

// How far the texts drawn from `first` on, one after another, make up a given text: the last
// of them taken, and whether they make all of it.
struct Run {
    size_t end = 0;
    size_t characters = 0;
    bool whole = false;
};

std::optional<Run> runOf(const std::vector<Drawn>& texts, size_t first, const std::vector<bool>& taken,
                         const std::string& given) {
    const std::string& start = texts[first].bare;
    if (taken[first] || start.empty() || given.compare(0, start.size(), start) != 0)
        return std::nullopt;
    Run run{first, start.size(), false};
    while (run.characters < given.size() && run.end + 1 < texts.size() && !taken[run.end + 1]) {
        const std::string& next = texts[run.end + 1].bare;
        if (next.empty() || given.compare(run.characters, next.size(), next) != 0)
            break;
        run.characters += next.size();
        ++run.end;
    }
    run.whole = run.characters == given.size();
    return run;
}

// How a frame's texts show the given texts: each given text a run of drawn texts makes up whole
// is shown; then each run that makes up only the start of a given text not shown whole
// elsewhere in the frame is that text, cut.
struct Shown {
    size_t first = 0; // the drawn text it begins with
    Run run;
};

std::vector<std::optional<Shown>> match(const std::vector<Drawn>& texts,
                                        const std::vector<std::string>& givenBare) {
    std::vector<std::optional<Shown>> shown(givenBare.size());
    std::vector<bool> taken(texts.size(), false);
    for (bool wholeRuns : {true, false}) {
        for (size_t i = 0; i < texts.size(); ++i) {
            std::optional<Run> best;
            size_t bestGiven = 0;
            for (size_t g = 0; g < givenBare.size(); ++g) {
                if (shown[g] && shown[g]->run.whole)
                    continue;
                const auto run = runOf(texts, i, taken, givenBare[g]);
                if (run && run->whole == wholeRuns && (!best || run->end > best->end)) {
                    best = run;
                    bestGiven = g;
                }
            }
            if (!best)
                continue;
            for (size_t k = i; k <= best->end; ++k)
                taken[k] = true;
            if (!shown[bestGiven])
                shown[bestGiven] = Shown{i, *best};
        }
    }
    return shown;
}

} // namespace

std::vector<DrawnText> drawnTexts(const std::vector<xui_host::Call>& calls) {
    std::vector<DrawnText> out;
    for (const auto& call : calls) {
        if (call.function != "CanvasDrawText" || call.args.size() < 8)
            continue;
        DrawnText d;
        const std::string& quoted = call.args[7]; // quotes and backslashes escaped
        for (size_t i = 1; i + 1 < quoted.size(); ++i)
            d.text += quoted[i] == '\\' ? quoted[++i] : quoted[i];
        d.x = unsigned(std::stoul(call.args[1]));
        d.y = unsigned(std::stoul(call.args[2]));
        d.size = unsigned(std::stoul(call.args[3]));
        d.font = call.args[4];
        d.colour = uint32_t(std::stoul(call.args[6], nullptr, 16));
        out.push_back(std::move(d));
    }
    return out;
}

std::string describe(const Overflow& overflow) {
    return "\"" + overflow.text + "\" at (" + std::to_string(overflow.x) + ", " + std::to_string(overflow.y) +
           ") in the " + overflow.area + ": " + overflow.how;
}

FitCheck::FitCheck() {
    listener_ = osal::host::addTextListener(
        [this](const osal::host::GivenText& text) { given(text.text, !text.lookedUp, text.thread); });
}

FitCheck::~FitCheck() {
    osal::host::removeTextListener(listener_);
}

void FitCheck::given(const std::string& text, bool laidOut, std::thread::id thread) {
    const std::string b = bare(text);
    if (b.empty())
        return;
    std::lock_guard<std::mutex> lock(mutex_);
    // A line a wrapping widget made of a text this thread gave a moment ago, or that text again.
    for (const auto& [by, recent] : recent_) {
        if (by != thread || recent.find(b) == std::string::npos)
            continue;
        if (laidOut && recent == b)
            for (auto& original : originals_)
                original.laidOut |= original.bare == b;
        return;
    }
    recent_.emplace_back(thread, b);
    if (recent_.size() > 16)
        recent_.erase(recent_.begin());
    if (known_.insert(text).second || laidOut)
        originals_.push_back({text, b, laidOut});
}

std::vector<FitCheck::Given> FitCheck::originals() {
    std::lock_guard<std::mutex> lock(mutex_);
    std::vector<Given> out;
    std::set<std::string> seen;
    for (const Given& g : originals_)
        if (seen.insert(g.text).second)
            out.push_back(g);
    return out;
}

std::vector<Overflow> FitCheck::check(const xui_host::Frame& frame) {
    std::vector<Overflow> out;
    const std::vector<Given> given = originals();
    std::vector<std::string> bare;
    for (const Given& g : given)
        bare.push_back(g.bare);
    const auto header = drawnIn(frame.headerCalls), main = drawnIn(frame.calls);
    pastEdges(header, frame.headerWidth, frame.headerHeight, "header", out);
    pastEdges(main, frame.width, frame.height, "main area", out);
    for (const auto& [texts, area] : {std::pair(&header, "header"), std::pair(&main, "main area")}) {
        const auto shown = match(*texts, bare);
        for (size_t g = 0; g < given.size(); ++g)
            if (shown[g] && !shown[g]->run.whole) {
                const Drawn& first = (*texts)[shown[g]->first];
                out.push_back({Overflow::Cut, given[g].text, int(first.x), int(first.y), area,
                               "lost \"" + after(given[g].text, shown[g]->run.characters) + "\""});
            }
    }
    return out;
}

std::string FitCheck::howShown(const xui_host::Frame& frame, const std::string& text) {
    const std::vector<Given> given = originals();
    const bool laidOut =
        std::any_of(given.begin(), given.end(), [&](const Given& g) { return g.laidOut && g.text == text; });
    if (!laidOut)
        return "";
    std::vector<Drawn> texts = drawnIn(frame.headerCalls);
    for (auto& d : drawnIn(frame.calls))
        texts.push_back(std::move(d));
    const auto shown = match(texts, {bare(text)})[0];
    if (!shown)
        return "nothing of it was drawn: hidden, or no line of it fits its label's height at its font size "
               "(a "
               "label draws the lines its height holds, and setText makes it 20 pixels a line)";
    if (!shown->run.whole)
        return "cut: lost \"" + after(text, shown->run.characters) + "\"";
    std::string drawn;
    for (size_t k = shown->first; k <= shown->run.end; ++k)
        drawn += (drawn.empty() ? "\"" : ", \"") + texts[k].drawn.text + "\"";
    return "drawn in " + std::to_string(shown->run.end - shown->first + 1) + " lines: " + drawn;
}

} // namespace ui::session
