#include "Session.hpp"
#include "Tones.hpp"

#include <osal/host.hpp>

#include <gif_lib.h>
#include <sndfile.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <map>
#include <mutex>
#include <optional>
#include <sstream>
#include <thread>

namespace demo {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

// 2026-11-22 09:30, local time.
constexpr int64_t kSessionClock = 1795339800;

int64_t steadyMs(Clock::time_point t) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(t.time_since_epoch()).count();
}

// Watches the panel and the buzzer: every LED picture drawn and every beep, with its time.
class Recorder {
public:
    struct LedDraw {
        int64_t atMs;
        unsigned x;
        std::string image;
    };

    Recorder() {
        xui_host::setCallListener([this](const xui_host::Call& call) {
            if (call.function != "CanvasDrawImg")
                return;
            std::lock_guard<std::mutex> lock(mutex_);
            draws_.push_back({steadyMs(call.at), unsigned(std::stoul(call.args[1])), call.args.back()});
            lastActivity_ = Clock::now();
        });
        osal::host::setBeepHandler([this](const osal::host::Beep& beep) {
            std::lock_guard<std::mutex> lock(mutex_);
            beeps_.push_back(beep);
            lastActivity_ = Clock::now();
        });
    }
    ~Recorder() {
        xui_host::setCallListener(nullptr);
        osal::host::setBeepHandler(nullptr);
    }

    // What happened since the last call: LED patterns as they changed, and tones, in order.
    std::vector<std::pair<int64_t, std::string>> take() {
        std::vector<LedDraw> draws;
        std::vector<osal::host::Beep> beeps;
        {
            std::lock_guard<std::mutex> lock(mutex_);
            draws.swap(draws_);
            beeps.swap(beeps_);
        }
        std::multimap<int64_t, std::string> events;
        for (const auto& beep : beeps) {
            events.emplace(beep.atMs, "tone " + std::to_string(beep.frequencyHz) + " Hz " +
                                          std::to_string(beep.durationMs) + " ms");
            allBeeps_.push_back(beep);
        }
        for (const auto& draw : draws) {
            // Resolved here, outside the stand-in's lock.
            if (xui_host::imageFile(draw.image).find("ctls/leds/") == std::string::npos)
                continue;
            if (!partial_.empty() && draw.x <= lastX_)
                partial_.clear(); // a redraw cut short: start again
            lastX_ = draw.x;
            partial_ += xui_host::imageFile(draw.image).find("green") != std::string::npos ? '1' : '0';
            if (partial_.size() == 4) {
                if (partial_ != leds_)
                    events.emplace(draw.atMs, "leds " + partial_);
                leds_ = partial_;
                partial_.clear();
            }
        }
        return {events.begin(), events.end()};
    }

    // Waits until nothing has been drawn or sounded for quiet (at most five seconds): the
    // indicator's worker plays on after a state change returns (the alert tone, the redraw
    // after a sequence), and a step records all of it.
    void waitForQuiet(std::chrono::milliseconds quiet) {
        const auto start = Clock::now(), deadline = start + 5s;
        for (;;) {
            Clock::time_point last = start; // the worker may not have begun yet
            {
                std::lock_guard<std::mutex> lock(mutex_);
                last = std::max(last, lastActivity_);
            }
            const auto now = Clock::now();
            if (now - last >= quiet || now > deadline)
                return;
            std::this_thread::sleep_for(quiet - (now - last));
        }
    }

    const std::string& leds() const { return leds_; }
    const std::vector<osal::host::Beep>& beeps() const { return allBeeps_; }

private:
    std::mutex mutex_;
    std::vector<LedDraw> draws_;
    std::vector<osal::host::Beep> beeps_;
    std::vector<osal::host::Beep> allBeeps_;
    std::string partial_;
    unsigned lastX_ = 0;
    std::string leds_ = "0000";
    Clock::time_point lastActivity_;
};

std::string slug(const std::string& action) {
    std::string out;
    for (char c : action)
        out += std::isalnum(static_cast<unsigned char>(c)) || c == '-' ? c : '_';
    return out;
}

void fail(const Command& c, const std::string& what) {
    throw ScriptError("line " + std::to_string(c.line) + " (" + c.text + "): " + what);
}

// Everything asked of the application is done and on the panel: a frame of the current screen
// begun after the request has been drawn and presented. (Header redraws present frames too, so
// the panel's frame count cannot tell.)
void settle(PaymentApp& app) {
    app.waitUntilIdle();
    ui::IGraphics& graphics = app.graphics();
    graphics.waitForDraw(); // a draw in progress is from before the request
    const int drawn = app.framesDrawn();
    graphics.update();
    const auto deadline = Clock::now() + 5s;
    while (app.framesDrawn() == drawn && Clock::now() < deadline)
        std::this_thread::sleep_for(1ms);
    graphics.waitForDraw(); // and presented
}

void press(PaymentApp& app, const Command& c, int code) {
    const int before = app.keysReceived();
    xui_host::pushKey(code);
    const auto deadline = Clock::now() + 5s;
    while (app.keysReceived() == before) {
        if (Clock::now() > deadline)
            fail(c, "the application took no key in 5 seconds");
        std::this_thread::sleep_for(1ms);
    }
}

void play(PaymentApp& app, const Command& c) {
    switch (c.kind) {
    case Command::Key:
        press(app, c, xuiKeyCode(c.word));
        break;
    case Command::Keys:
        for (char digit : c.word)
            press(app, c, digit);
        break;
    case Command::Wait:
        std::this_thread::sleep_for(std::chrono::milliseconds(c.number));
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
        break;
    }
}

// An animated GIF of the steps, a second each, looping; each frame quantised by giflib.
void writeGif(const std::string& path, const std::vector<Step>& steps) {
    if (steps.empty())
        return;
    int error = 0;
    GifFileType* gif = EGifOpenFileName(path.c_str(), false, &error);
    if (!gif)
        throw std::runtime_error(path + ": " + GifErrorString(error));
    const int w = int(steps[0].screen.width), h = int(steps[0].screen.height);
    bool ok = true;
    EGifSetGifVersion(gif, true);
    ok &= EGifPutScreenDesc(gif, w, h, 8, 0, nullptr) == GIF_OK;
    unsigned char loop[] = {1, 0, 0};
    ok &= EGifPutExtensionLeader(gif, APPLICATION_EXT_FUNC_CODE) == GIF_OK;
    ok &= EGifPutExtensionBlock(gif, 11, "NETSCAPE2.0") == GIF_OK;
    ok &= EGifPutExtensionBlock(gif, 3, loop) == GIF_OK;
    ok &= EGifPutExtensionTrailer(gif) == GIF_OK;
    const size_t n = size_t(w) * size_t(h);
    std::vector<GifByteType> r(n), g(n), b(n), indices(n);
    for (const Step& step : steps) {
        for (size_t i = 0; i < n; ++i) {
            const uint32_t p = step.screen.argb[i];
            r[i] = GifByteType(p >> 16), g[i] = GifByteType(p >> 8), b[i] = GifByteType(p);
        }
        ColorMapObject* map = GifMakeMapObject(256, nullptr);
        int size = 256;
        ok &= map && GifQuantizeBuffer(unsigned(w), unsigned(h), &size, r.data(), g.data(), b.data(),
                                       indices.data(), map->Colors) == GIF_OK;
        GraphicsControlBlock control{DISPOSE_DO_NOT, false, 100, NO_TRANSPARENT_COLOR};
        GifByteType extension[4];
        const size_t length = EGifGCBToExtension(&control, extension);
        ok &= EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, int(length), extension) == GIF_OK;
        ok &= EGifPutImageDesc(gif, 0, 0, w, h, false, map) == GIF_OK;
        for (int y = 0; ok && y < h; ++y)
            ok &= EGifPutLine(gif, indices.data() + size_t(y) * size_t(w), w) == GIF_OK;
        GifFreeMapObject(map);
    }
    if (EGifCloseFile(gif, &error) != GIF_OK || !ok)
        throw std::runtime_error(path + ": the GIF could not be written");
}

// The session's tones at the times they sounded, as 16-bit mono WAV through libsndfile.
void writeWav(const std::string& path, const std::vector<osal::host::Beep>& beeps, int64_t startMs,
              int64_t endMs) {
    std::vector<int16_t> samples(size_t(std::max<int64_t>(0, endMs - startMs)) * kToneSampleRate / 1000, 0);
    for (const auto& beep : beeps)
        addTone(samples, size_t(std::max<int64_t>(0, beep.atMs - startMs)) * kToneSampleRate / 1000,
                beep.frequencyHz, beep.durationMs);
    SF_INFO info{};
    info.samplerate = kToneSampleRate;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file)
        throw std::runtime_error(path + ": " + sf_strerror(nullptr));
    const sf_count_t written = sf_write_short(file, samples.data(), sf_count_t(samples.size()));
    sf_close(file);
    if (written != sf_count_t(samples.size()))
        throw std::runtime_error(path + ": the tones could not be written");
}

std::string html(const std::string& text) {
    std::string out;
    for (char c : text)
        out += c == '<' ? "&lt;" : c == '>' ? "&gt;" : c == '&' ? "&amp;" : std::string(1, c);
    return out;
}

void writeStoryboard(const std::string& path, const std::vector<Step>& steps) {
    std::ofstream out(path);
    out << "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>Session storyboard</title>\n"
        << "<style>body{font-family:sans-serif;background:#f4f6f8;margin:24px}"
        << "table{border-collapse:collapse}td,th{padding:8px 12px;border-bottom:1px solid #d0d7de;"
        << "vertical-align:top;text-align:left}img{width:320px;image-rendering:pixelated;"
        << "box-shadow:0 1px 4px #0003}.led{display:inline-block;width:14px;height:14px;border-radius:50%;"
        << "margin-right:4px;background:#263238;border:1px solid #607d8b}.on{background:#00e676}"
        << "code{background:#e6ebf0;padding:2px 6px;border-radius:4px}ul{margin:0;padding-left:18px}"
        << ".leds{white-space:nowrap}"
        << "</style></head><body>\n<h1>Session storyboard</h1>\n"
        << "<table><tr><th>#</th><th>Action</th><th>Screen</th><th>LEDs</th><th>Tones and LED "
           "changes</th></tr>\n";
    for (const Step& step : steps) {
        out << "<tr><td>" << step.number << "</td><td><code>" << html(step.action)
            << "</code></td><td><img src=\"" << step.picture << "\" alt=\"" << html(step.action)
            << "\"></td><td class=\"leds\">";
        for (char led : step.leds)
            out << "<span class=\"led" << (led == '1' ? " on" : "") << "\"></span>";
        out << "</td><td><ul>";
        for (const auto& event : step.events)
            out << "<li>" << html(event) << "</li>";
        out << "</ul></td></tr>\n";
    }
    out << "</table></body></html>\n";
    if (!out)
        throw std::runtime_error(path + ": the storyboard could not be written");
}

} // namespace

int xuiKeyCode(const std::string& name) {
    static const std::map<std::string, int> codes = {
        {"ENTER", XUI_KEY_ENTER}, {"CANCEL", XUI_KEY_CANCEL}, {"CLEAR", XUI_KEY_CLEAR},
        {"UP", XUI_KEY_UP},       {"DOWN", XUI_KEY_DOWN},     {"MENU", XUI_KEY_MENU},
        {"ALPHA", XUI_KEY_ALPHA}, {"STAR", XUI_KEY_STAR},     {"HASH", XUI_KEY_HASH},
        {"F1", XUI_KEY_F1},       {"F2", XUI_KEY_F1 + 1},     {"F3", XUI_KEY_F1 + 2},
        {"F4", XUI_KEY_F1 + 3},   {"POWER", XUI_KEY_POWER}};
    if (name.size() == 1 && name[0] >= '0' && name[0] <= '9')
        return name[0];
    const auto it = codes.find(name);
    return it == codes.end() ? XUI_KEY_NONE : it->second;
}

std::vector<std::string> timelineLines(const std::vector<Step>& steps, bool withTimes) {
    std::vector<std::string> lines;
    for (const Step& step : steps) {
        std::ostringstream head;
        head << "step " << std::setw(2) << std::setfill('0') << step.number << "  " << step.action;
        lines.push_back(head.str());
        for (const auto& event : step.events)
            lines.push_back("  " + (withTimes ? event : event.substr(event.find(" ms ") + 4)));
    }
    return lines;
}

namespace {

// The fixed clock and animation of a recording, released however the session ends.
struct PinnedTime {
    PinnedTime() {
        osal::host::pinClock(kSessionClock);
        xui_host::pinAnimationTime(900ms);
    }
    ~PinnedTime() {
        xui_host::unpinAnimationTime();
        osal::host::unpinClock();
    }
};

} // namespace

SessionResult runSession(const std::vector<Command>& script, const SessionOptions& options) {
    std::optional<PinnedTime> pinned(std::in_place);
    AppOptions appOptions = options.app;
    appOptions.indicator.idlePeriodMs = 60000;

    SessionResult result;
    Recorder recorder;
    const auto start = Clock::now();
    {
        PaymentApp app(appOptions);
        int64_t stepStart = steadyMs(start);
        const auto capture = [&](const std::string& action, const std::string& name) {
            settle(app);
            Step step;
            step.number = int(result.steps.size());
            step.action = action;
            std::ostringstream picture;
            picture << std::setw(2) << std::setfill('0') << step.number << "_" << slug(name) << ".png";
            step.picture = picture.str();
            step.screen = xui_host::screen();
            for (const auto& [at, what] : recorder.take()) {
                std::ostringstream event;
                event << "+" << std::setw(4) << std::setfill('0') << std::max<int64_t>(0, at - stepStart)
                      << " ms " << what;
                step.events.push_back(event.str());
            }
            step.leds = recorder.leds();
            stepStart = steadyMs(Clock::now());
            result.steps.push_back(std::move(step));
        };
        // Longer than the silence inside an alert tone.
        const std::chrono::milliseconds quiet(appOptions.indicator.alertToneDurationMs +
                                              appOptions.indicator.alertTonePauseMs + 200);
        capture("start", "start");
        for (const Command& c : script) {
            const int changes = app.indicatorChanges();
            play(app, c);
            app.waitUntilIdle();
            if (app.indicatorChanges() != changes)
                recorder.waitForQuiet(quiet);
            if (c.kind != Command::Wait)
                capture(c.text, c.kind == Command::Shot ? c.word : c.text);
        }
    }
    const int64_t endMs = steadyMs(Clock::now());
    pinned.reset();

    if (options.out.empty())
        return result;
    std::filesystem::create_directories(options.out);
    const auto written = [&](const std::string& name) {
        result.files.push_back(options.out + "/" + name);
        return result.files.back();
    };
    for (const Step& step : result.steps)
        if (!xui_host::savePng(step.screen, written(step.picture)))
            throw std::runtime_error(result.files.back() + ": the picture could not be written");
    writeGif(written("session.gif"), result.steps);
    {
        std::ofstream timeline(written("timeline.txt"));
        for (const auto& line : timelineLines(result.steps, true))
            timeline << line << "\n";
        if (!timeline)
            throw std::runtime_error(result.files.back() + ": the timeline could not be written");
    }
    writeWav(written("tones.wav"), recorder.beeps(), steadyMs(start), endMs);
    writeStoryboard(written("storyboard.html"), result.steps);
    return result;
}

} // namespace demo
