#include "ui/session/Recording.hpp"
#include "ui/session/Tones.hpp"

#include <gif_lib.h>
#include <sndfile.h>

#include <filesystem>
#include <fstream>
#include <iomanip>
#include <sstream>

namespace ui::session {

namespace {

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
        << ".leds{white-space:nowrap}.overflow{color:#c62828;font-weight:bold}"
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
        for (const auto& overflow : step.overflows)
            out << "<li class=\"overflow\">does not fit: " << html(overflow) << "</li>";
        out << "</ul></td></tr>\n";
    }
    out << "</table></body></html>\n";
    if (!out)
        throw std::runtime_error(path + ": the storyboard could not be written");
}

} // namespace

std::vector<std::string> timelineLines(const std::vector<Step>& steps, bool withTimes) {
    std::vector<std::string> lines;
    for (const Step& step : steps) {
        std::ostringstream head;
        head << "step " << std::setw(2) << std::setfill('0') << step.number << "  " << step.action;
        lines.push_back(head.str());
        for (const auto& event : step.events)
            lines.push_back("  " + (withTimes ? event : event.substr(event.find(" ms ") + 4)));
        for (const auto& overflow : step.overflows)
            lines.push_back("  overflow " + overflow);
    }
    return lines;
}

std::vector<std::string> writeRecording(const std::string& folder, const std::vector<Step>& steps,
                                        const std::vector<osal::host::Beep>& beeps, int64_t startMs,
                                        int64_t endMs) {
    std::vector<std::string> files;
    std::filesystem::create_directories(folder);
    const auto written = [&](const std::string& name) {
        files.push_back(folder + "/" + name);
        return files.back();
    };
    for (const Step& step : steps)
        if (!xui_host::savePng(step.screen, written(step.picture)))
            throw std::runtime_error(files.back() + ": the picture could not be written");
    writeGif(written("session.gif"), steps);
    {
        std::ofstream timeline(written("timeline.txt"));
        for (const auto& line : timelineLines(steps, true))
            timeline << line << "\n";
        if (!timeline)
            throw std::runtime_error(files.back() + ": the timeline could not be written");
    }
    writeWav(written("tones.wav"), beeps, startMs, endMs);
    writeStoryboard(written("storyboard.html"), steps);
    return files;
}

} // namespace ui::session
