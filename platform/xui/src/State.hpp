// Shared state of the Xui stand-in. Every entry point takes State::mutex, so the renderer is
// safe to call from any thread; only the key queue has a lock of its own (XuiGetKey blocks).
#pragma once

#include "xui.h"
#include "xui_host.hpp"

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

struct _XuiFont {};

namespace xui_impl {

// Refuses pictures whose pixels would not fit in memory sensibly (a corrupt header, or a small
// file that inflates enormously, can claim billions of pixels). 16 M pixels is far more than any
// terminal screen; a decoder checks the header before anything is inflated.
constexpr uint64_t kMaxPixels = 16ull * 1024 * 1024;

using Clock = std::chrono::steady_clock;

struct Image : _XuiImg {
    int id = 0;
    std::vector<uint32_t> px; // 0xAARRGGBB, row-major

    Image(unsigned w, unsigned h, uint32_t fill = 0);
    uint32_t at(unsigned x, unsigned y) const { return px[size_t(y) * width + x]; }
};

struct GifFrame {
    Image picture{0, 0};  // the whole logical screen after this frame was applied
    unsigned delayMs = 0; // how long the frame stays
};

struct GifAnimation {
    std::vector<GifFrame> frames;
    unsigned totalMs = 0;
    Clock::time_point start;
};

struct Canvas : _XuiWindow {
    int id = 0;
    std::string name;
    Canvas* parent = nullptr;
    std::vector<Canvas*> children; // creation order is compositing order
    int x = 0;
    int y = 0;
    bool visible = false;
    std::vector<uint32_t> px;
    uint32_t background = 0; // 0xAARRGGBB
    XuiBgStyle backgroundStyle = XUI_BG_NORMAL;
    std::unique_ptr<Image> backgroundImage;
    std::unique_ptr<GifAnimation> gif;
    XuiButtonStat buttonStat[2] = {};
    int buttonKey = 0;
    std::vector<uint16_t> signature{0xFFFF, 0xFFFF};
    // What was drawn into it since it was last hidden or cleared whole, while calls are
    // recorded: the frame it holds.
    std::vector<xui_host::Call> drawn;
    // For a canvas of the root: the number of the main frame begun in it (its first drawing
    // since it was last hidden), 0 while none.
    uint64_t begun = 0;

    Canvas(unsigned w, unsigned h);
};

struct Font : _XuiFont {
    int id = 0;
    std::string path;
    void* face = nullptr; // FT_Face; Text.cpp owns the FreeType side
};

struct State {
    std::mutex mutex;
    bool open = false;
    bool suspended = false;
    unsigned panelWidth = 320;
    unsigned panelHeight = 240;
    unsigned statusbarHeight = 0;
    Canvas* root = nullptr;
    Canvas* statusbar = nullptr;
    std::set<Canvas*> canvases;
    std::map<const Image*, std::unique_ptr<Image>> images;
    std::map<const Font*, std::unique_ptr<Font>> fonts;
    int nextCanvasId = 1;
    int nextImageId = 1;
    int nextFontId = 1;
    std::map<int, std::string> statusbarIcons;
    std::map<int, std::string> imageFiles; // image id -> the file it was loaded from
    bool failNextOpen = false;
    int failCanvasAfter = -1; // canvases still made before one fails; -1: none fails
    bool animationPinned = false;
    uint64_t measuredTexts = 0; // XuiTextWidth calls
    uint64_t measuredBytes = 0; // and the bytes they measured
    uint64_t mainFramesBegun = 0;
    // The status bar's canvas shown last, as it was when shown.
    xui_host::Frame header;
    std::chrono::milliseconds pinnedAnimationTime{0};
};

State& state();

Canvas* findCanvas(const XuiWindow* handle);     // null for an unknown handle; mutex held
Image* findImage(const XuiImg* handle);          // likewise
Font* findFont(const XuiFont* handle);           // likewise
Image* adoptImage(std::unique_ptr<Image> image); // registers a new handle; mutex held

Canvas* createCanvas(Canvas* parent, unsigned x, unsigned y, unsigned w, unsigned h);
void destroyCanvas(Canvas* canvas);
void destroyAllCanvases();
void clearArea(Canvas& canvas, int x, int y, int w, int h);
void fillRect(Canvas& canvas, int x, int y, int w, int h, uint32_t color, int radius, bool fill);
void drawImage(Canvas& canvas, int x, int y, int w, int h, XuiBgStyle style, const Image& image);
xui_host::Pixels composite(const Canvas& canvas);
xui_host::Pixels compositeScreen();
void refreshGif(Canvas& canvas);

// Source-over blend of non-premultiplied colours.
uint32_t blend(uint32_t dst, uint32_t src);
// The colour with its alpha scaled by coverage (0..255).
inline uint32_t withCoverage(uint32_t color, unsigned coverage) {
    unsigned a = ((color >> 24) * coverage + 127) / 255;
    return (color & 0x00FFFFFFu) | (a << 24);
}

// Text (FreeType)
Font* createFont(const char* path, int index, XuiFontSet set);
void destroyFont(Font* font);
int textWidth(Font& font, unsigned size, const char* text);
void drawText(Canvas& canvas, int x, int y, unsigned size, Font& font, XuiTextStyle style, uint32_t color,
              const char* text);

// PNG (libpng)
std::unique_ptr<Image> decodePngFile(const char* path);
std::unique_ptr<Image> decodePngMemory(const unsigned char* data, size_t length);
bool encodePngFile(const xui_host::Pixels& pixels, const char* path);

// GIF (giflib)
std::unique_ptr<GifAnimation> decodeGif(const char* path);

// Keys
void keysOpen(bool open); // call without State::mutex held
void keysReset();

// Trace
bool tracing();
// Records a call; into, when given, is the canvas it draws into (State::mutex held).
void record(const char* function, std::vector<std::string> args, Canvas* into = nullptr);
// A canvas is drawn into: on the root, the first drawing begins a main frame (mutex held).
void noteDrawing(Canvas& canvas);
// A canvas is shown or hidden (mutex held): frames begin, end and are kept here. Returns the
// frame of the main area it presents, if it is one.
std::optional<xui_host::Frame> noteShown(Canvas& canvas, bool visible);
// Counts a frame shown and keeps the main area's; call without State::mutex held.
void noteFrameShown(std::optional<xui_host::Frame> mainFrame);
void traceReset();
std::string arg(const void* handle);
std::string arg(long long value);
std::string argHex(uint32_t value);
std::string argText(const char* text);

} // namespace xui_impl
