// The Xui entry points: argument checks, the trace, then the renderer under one lock.
#include "State.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>

using namespace xui_impl;
using Lock = std::lock_guard<std::mutex>;
using xui_host::Pixels;

namespace xui_impl {

Image* findImage(const XuiImg* handle) {
    auto& s = state();
    auto it = s.images.find(static_cast<const Image*>(handle));
    return it == s.images.end() ? nullptr : it->second.get();
}

Font* findFont(const XuiFont* handle) {
    auto& s = state();
    auto it = s.fonts.find(static_cast<const Font*>(handle));
    return it == s.fonts.end() ? nullptr : it->second.get();
}

Image* adoptImage(std::unique_ptr<Image> image) {
    if (!image)
        return nullptr;
    auto& s = state();
    image->id = s.nextImageId++;
    Image* raw = image.get();
    s.images.emplace(raw, std::move(image));
    return raw;
}

} // namespace xui_impl

namespace {

#define TRACE(...)                                                                                           \
    do {                                                                                                     \
        if (tracing())                                                                                       \
            record(__func__ + 3, {__VA_ARGS__});                                                             \
    } while (0)

// A call that draws into canvas (null when the handle is unknown), kept with the frame it holds.
#define TRACE_INTO(canvas, ...)                                                                              \
    do {                                                                                                     \
        if (tracing())                                                                                       \
            record(__func__ + 3, {__VA_ARGS__}, canvas);                                                     \
    } while (0)

int parseArgument(int argc, char** argv, const char* key, int fallback) {
    const size_t n = std::strlen(key);
    for (int i = 0; argv && i < argc; ++i)
        if (argv[i] && std::strncmp(argv[i], key, n) == 0)
            return std::atoi(argv[i] + n);
    return fallback;
}

constexpr unsigned kMaxTextSize = 1024; // pixels

unsigned clampedStatusbar(int requested, unsigned panelHeight) {
    if (requested < 0)
        return 0;
    return unsigned(requested) > panelHeight ? panelHeight : unsigned(requested);
}

std::unique_ptr<Image> copyOf(const Image& src) {
    auto img = std::make_unique<Image>(src.width, src.height);
    img->px = src.px;
    return img;
}

} // namespace

extern "C" {

int XuiOpen(int argc, char** argv) {
    {
        auto& s = state();
        Lock lock(s.mutex);
        std::vector<std::string> traced;
        for (int i = 0; argv && i < argc; ++i)
            traced.push_back(argText(argv[i]));
        if (tracing())
            record("Open", traced);
        if (s.open)
            return 0;
        if (s.failNextOpen) {
            s.failNextOpen = false;
            return -1;
        }
        const int rotate = parseArgument(argc, argv, "ROTATE=", 0);
        unsigned w = s.panelWidth, h = s.panelHeight;
        if (rotate == 90 || rotate == 270)
            std::swap(w, h);
        s.nextCanvasId = 1; // names in traces restart with each display session
        s.statusbarHeight = clampedStatusbar(parseArgument(argc, argv, "STATUSBAR=", 0), h);
        // The root canvas reports the whole panel, as the terminal's does; it sits below the
        // status bar, so the library sizes its main area as the root height less the bar.
        s.root = createCanvas(nullptr, 0, 0, w, h);
        s.root->name = "root";
        s.root->background = 0xFF000000u;
        s.root->visible = true;
        clearArea(*s.root, 0, 0, int(w), int(h));
        s.statusbar = createCanvas(nullptr, 0, 0, w, s.statusbarHeight);
        s.statusbar->name = "statusbar";
        s.statusbar->background = 0xFF000000u;
        s.statusbar->visible = true;
        clearArea(*s.statusbar, 0, 0, int(w), int(s.statusbarHeight));
        s.open = true;
        s.suspended = false;
    }
    keysOpen(true);
    return 0;
}

int XuiSuspend(void) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE();
    s.suspended = true;
    return s.open ? 0 : -1;
}

int XuiResume(void) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE();
    s.suspended = false;
    return s.open ? 0 : -1;
}

int XuiIsRunning(void) {
    auto& s = state();
    Lock lock(s.mutex);
    return s.open ? 1 : 0;
}

int XuiClose(void) {
    {
        auto& s = state();
        Lock lock(s.mutex);
        TRACE();
        if (!s.open)
            return -1;
        destroyAllCanvases();
        s.open = false;
    }
    keysOpen(false);
    return 0;
}

XuiWindow* XuiRootCanvas(void) {
    auto& s = state();
    Lock lock(s.mutex);
    return s.root;
}

XuiWindow* XuiStatusbarCanvas(void) {
    auto& s = state();
    Lock lock(s.mutex);
    return s.statusbar;
}

XuiWindow* XuiCreateCanvas(XuiWindow* parent, unsigned x, unsigned y, unsigned width, unsigned height) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(parent), arg(x), arg(y), arg(width), arg(height));
    Canvas* p = findCanvas(parent);
    if (s.failCanvasAfter >= 0 && s.failCanvasAfter-- == 0)
        return nullptr; // as a terminal out of memory for one more canvas
    if (!p || uint64_t(width) * height > 64ull * 1024 * 1024)
        return nullptr;
    Canvas* c = createCanvas(p, x, y, width, height);
    return c;
}

XuiWindow* XuiCreateCanvasEx(XuiWindow* parent, unsigned x, unsigned y, unsigned width, unsigned height,
                             unsigned flags) {
    (void)flags;
    return XuiCreateCanvas(parent, x, y, width, height);
}

int XuiCanvasMoveToY(XuiWindow* canvas, unsigned y) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(canvas), arg(y));
    Canvas* c = findCanvas(canvas);
    if (!c)
        return -1;
    c->y = int(y);
    return 0;
}

int XuiDestroyWindow(XuiWindow* window) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(window));
    Canvas* c = findCanvas(window);
    if (!c || c == s.root || c == s.statusbar)
        return -1;
    destroyCanvas(c);
    return 0;
}

int XuiShowWindow(XuiWindow* window, int visible, int flags) {
    std::optional<xui_host::Frame> mainFrame;
    {
        auto& s = state();
        Lock lock(s.mutex);
        TRACE(arg(window), arg(visible), arg(flags));
        Canvas* c = findCanvas(window);
        if (!c)
            return -1;
        c->visible = visible != 0;
        mainFrame = noteShown(*c, c->visible);
        if (!c->visible)
            return 0;
    }
    noteFrameShown(std::move(mainFrame));
    return 0;
}

int XuiCanvasSetBackground(XuiWindow* canvas, XuiBgStyle style, XuiImg* image, XuiColor color) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(canvas), arg(style), arg(image), argHex(color));
    Canvas* c = findCanvas(canvas);
    if (!c)
        return -1;
    c->drawn.clear(); // a new background clears what the canvas held
    Image* img = image ? findImage(image) : nullptr;
    c->background = color;
    c->backgroundStyle = style;
    c->backgroundImage = img ? copyOf(*img) : nullptr;
    clearArea(*c, 0, 0, int(c->width), int(c->height));
    return 0;
}

int XuiClearArea(XuiWindow* canvas, unsigned x, unsigned y, unsigned width, unsigned height) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(canvas), arg(x), arg(y), arg(width), arg(height));
    Canvas* c = findCanvas(canvas);
    if (!c)
        return -1;
    clearArea(*c, int(std::min<unsigned>(x, c->width)), int(std::min<unsigned>(y, c->height)),
              int(std::min<unsigned>(width, c->width)), int(std::min<unsigned>(height, c->height)));
    return 0;
}

XuiFont* XuiCreateFont(char* path, int index, XuiFontSet fontSet) {
    auto& s = state();
    Lock lock(s.mutex);
    XuiFont* font = createFont(path, index, fontSet);
    TRACE(argText(path), arg(index), arg(fontSet));
    return font;
}

int XuiDestroyFont(XuiFont* font) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(font));
    Font* f = findFont(font);
    if (!f)
        return -1;
    destroyFont(f);
    return 0;
}

int XuiCanvasDrawText(XuiWindow* canvas, unsigned x, unsigned y, unsigned size, XuiFont* font,
                      XuiTextStyle style, XuiColor color, const char* text) {
    auto& s = state();
    Lock lock(s.mutex);
    Canvas* c = findCanvas(canvas);
    TRACE_INTO(c, arg(canvas), arg(x), arg(y), arg(size), arg(font), arg(style), argHex(color),
               argText(text));
    Font* f = findFont(font);
    // A text size beyond any panel would only make FreeType render glyphs of gigabytes.
    if (!c || !f || !text || size > kMaxTextSize)
        return -1;
    noteDrawing(*c);
    // Coordinates wrapped around from unsigned arithmetic are far off the canvas: clip them.
    if (x > 0x7FFFFFFFu || y > 0x7FFFFFFFu)
        return 0;
    drawText(*c, int(x), int(y), size, *f, style, color, text);
    return 0;
}

int XuiTextWidth(XuiFont* font, int size, const char* text) {
    auto& s = state();
    Lock lock(s.mutex);
    ++s.measuredTexts;
    s.measuredBytes += text ? std::strlen(text) : 0;
    Font* f = findFont(font);
    if (!f || size <= 0 || unsigned(size) > kMaxTextSize)
        return 0;
    return textWidth(*f, unsigned(size), text);
}

int XuiCanvasDrawRect(XuiWindow* canvas, unsigned x, unsigned y, unsigned width, unsigned height,
                      XuiColor color, int radius, int fill) {
    auto& s = state();
    Lock lock(s.mutex);
    Canvas* c = findCanvas(canvas);
    TRACE_INTO(c, arg(canvas), arg(x), arg(y), arg(width), arg(height), argHex(color), arg(radius),
               arg(fill));
    if (!c)
        return -1;
    noteDrawing(*c);
    if (x > 0x7FFFFFFFu || y > 0x7FFFFFFFu)
        return 0;
    fillRect(*c, int(x), int(y), int(std::min(width, 0x7FFFFFFFu)), int(std::min(height, 0x7FFFFFFFu)), color,
             radius, fill != 0);
    return 0;
}

int XuiCanvasDrawImg(XuiWindow* canvas, unsigned x, unsigned y, unsigned width, unsigned height,
                     XuiBgStyle style, XuiImg* image) {
    auto& s = state();
    Lock lock(s.mutex);
    Canvas* c = findCanvas(canvas);
    TRACE_INTO(c, arg(canvas), arg(x), arg(y), arg(width), arg(height), arg(style), arg(image));
    Image* img = findImage(image);
    if (!c || !img)
        return -1;
    noteDrawing(*c);
    if (x > 0x7FFFFFFFu || y > 0x7FFFFFFFu || width > 0x7FFFFFFFu || height > 0x7FFFFFFFu)
        return 0;
    drawImage(*c, int(x), int(y), int(width), int(height), style, *img);
    return 0;
}

XuiWindow* XuiCreateButton(XuiWindow* parent, unsigned x, unsigned y, unsigned width, unsigned height) {
    return XuiCreateCanvas(parent, x, y, width, height);
}

int XuiButtonSetStat(XuiWindow* button, XuiButtonStatType type, XuiButtonStat* stat) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(button), arg(type));
    Canvas* c = findCanvas(button);
    if (!c || !stat || (type != XUI_BTN_NORMAL && type != XUI_BTN_PRESSED))
        return -1;
    c->buttonStat[type] = *stat;
    c->buttonStat[type].text = nullptr; // the caller's string need not outlive the call
    if (type == XUI_BTN_NORMAL) {
        // The host has no touch screen: a button always shows its normal look.
        c->background = stat->background;
        Image* img = stat->image ? findImage(stat->image) : nullptr;
        c->backgroundImage = img ? copyOf(*img) : nullptr;
        c->backgroundStyle = XUI_BG_CENTER;
        clearArea(*c, 0, 0, int(c->width), int(c->height));
    }
    return 0;
}

int XuiButtonSetKey(XuiWindow* button, int key) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(button), arg(key));
    Canvas* c = findCanvas(button);
    if (!c)
        return -1;
    c->buttonKey = key;
    return 0;
}

XuiWindow* XuiCreateSignatureBoard(XuiWindow* parent, unsigned x, unsigned y, unsigned width,
                                   unsigned height) {
    return XuiCreateCanvas(parent, x, y, width, height);
}

int XuiSigBoardSetStat(XuiWindow* board, XuiSigBoardStat* stat) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(board));
    Canvas* c = findCanvas(board);
    if (!c || !stat)
        return -1;
    c->background = stat->background;
    clearArea(*c, 0, 0, int(c->width), int(c->height));
    return 0;
}

XuiImg* XuiSigBoardImg(XuiWindow* board) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(board));
    Canvas* c = findCanvas(board);
    if (!c)
        return nullptr;
    Pixels p = composite(*c);
    auto img = std::make_unique<Image>(p.width, p.height);
    img->px = std::move(p.argb);
    return adoptImage(std::move(img));
}

void* XuiSigBoardSignData(XuiWindow* board) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(board));
    Canvas* c = findCanvas(board);
    return c ? c->signature.data() : nullptr;
}

XuiImg* XuiCaptureScreen(void) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE();
    if (!s.open)
        return nullptr;
    Pixels p = compositeScreen();
    auto img = std::make_unique<Image>(p.width, p.height);
    img->px = std::move(p.argb);
    return adoptImage(std::move(img));
}

XuiImg* XuiCaptureCanvas(XuiWindow* canvas, unsigned x, unsigned y, unsigned width, unsigned height) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(canvas), arg(x), arg(y), arg(width), arg(height));
    Canvas* c = findCanvas(canvas);
    if (!c || x >= c->width || y >= c->height)
        return nullptr;
    width = std::min(width, c->width - x);
    height = std::min(height, c->height - y);
    Pixels p = composite(*c);
    auto img = std::make_unique<Image>(width, height);
    for (unsigned r = 0; r < height; ++r)
        for (unsigned col = 0; col < width; ++col)
            img->px[size_t(r) * width + col] = p.at(x + col, y + r);
    return adoptImage(std::move(img));
}

XuiImg* XuiImgLoadFromFile(const char* path) {
    auto decoded = decodePngFile(path); // decoding needs no lock
    auto& s = state();
    Lock lock(s.mutex);
    Image* img = adoptImage(std::move(decoded));
    if (img)
        s.imageFiles[img->id] = path;
    TRACE(argText(path));
    return img;
}

XuiImg* XuiImgLoadFromMem(unsigned char* data, unsigned long length, int format) {
    auto decoded = decodePngMemory(data, length);
    auto& s = state();
    Lock lock(s.mutex);
    XuiImg* img = adoptImage(std::move(decoded));
    TRACE(arg(length), arg(format));
    return img;
}

int XuiImgSaveToFile(XuiImg* image, const char* path) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(image), argText(path));
    Image* img = findImage(image);
    if (!img)
        return -1;
    Pixels p;
    p.width = img->width;
    p.height = img->height;
    p.argb = img->px;
    return encodePngFile(p, path) ? 0 : -1;
}

int XuiImgFree(XuiImg* image) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(image));
    auto it = s.images.find(static_cast<const Image*>(image));
    if (it == s.images.end())
        return -1;
    s.images.erase(it);
    return 0;
}

int XuiImgToRgba(XuiImg* image, char* rgba) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(image));
    Image* img = findImage(image);
    if (!img || !rgba)
        return -1;
    for (size_t i = 0; i < img->px.size(); ++i) {
        uint32_t c = img->px[i];
        rgba[i * 4 + 0] = char(c >> 16);
        rgba[i * 4 + 1] = char(c >> 8);
        rgba[i * 4 + 2] = char(c);
        rgba[i * 4 + 3] = char(c >> 24);
    }
    return 0;
}

XuiImg* XuiImgTransform(XuiImg* image, XuiTransform transform) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(image), arg(transform));
    Image* src = findImage(image);
    if (!src)
        return nullptr;
    const unsigned w = src->width, h = src->height;
    const bool swap = transform == XUI_TRANS_ROTATE_90 || transform == XUI_TRANS_ROTATE_270;
    auto out = std::make_unique<Image>(swap ? h : w, swap ? w : h);
    for (unsigned y = 0; y < h; ++y) {
        for (unsigned x = 0; x < w; ++x) {
            unsigned tx = x, ty = y;
            switch (transform) {
            case XUI_TRANS_ROTATE_90:
                tx = h - 1 - y, ty = x;
                break; // clockwise
            case XUI_TRANS_ROTATE_180:
                tx = w - 1 - x, ty = h - 1 - y;
                break;
            case XUI_TRANS_ROTATE_270:
                tx = y, ty = w - 1 - x;
                break;
            case XUI_TRANS_MIRROR_X:
                tx = w - 1 - x;
                break;
            case XUI_TRANS_MIRROR_Y:
                ty = h - 1 - y;
                break;
            default:
                break;
            }
            out->px[size_t(ty) * out->width + tx] = src->at(x, y);
        }
    }
    return adoptImage(std::move(out));
}

XuiWindow* XuiCreateGif(XuiWindow* parent, unsigned x, unsigned y, unsigned width, unsigned height,
                        const char* path) {
    auto anim = decodeGif(path);
    auto& s = state();
    Lock lock(s.mutex);
    Canvas* p = findCanvas(parent);
    TRACE_INTO(p, arg(parent), arg(x), arg(y), arg(width), arg(height), argText(path));
    if (!p || !anim || width == 0 || height == 0 || uint64_t(width) * height > 64ull * 1024 * 1024)
        return nullptr;
    noteDrawing(*p);
    Canvas* c = createCanvas(p, x, y, width, height);
    c->gif = std::move(anim);
    c->visible = true;
    return c;
}

int XuiSetStatusbarIcon(int icon, const char* text) {
    auto& s = state();
    Lock lock(s.mutex);
    TRACE(arg(icon), argText(text));
    s.statusbarIcons[icon] = text ? text : "";
    return 0;
}

int XuiGetHzString(XuiImeAttr attr, char* buffer, unsigned minLength, unsigned maxLength) {
    (void)attr;
    TRACE(arg(minLength), arg(maxLength));
    if (buffer)
        buffer[0] = '\0';
    return -1;
}

int XuiGetString(XuiGetStrAttr attr, char* buffer, unsigned char mode, unsigned minLength,
                 unsigned maxLength) {
    (void)attr;
    TRACE(arg(mode), arg(minLength), arg(maxLength));
    if (buffer)
        buffer[0] = '\0';
    return -1;
}

char* XuiBidiStrdup(const char* text) {
    return text ? strdup(text) : nullptr;
}

} // extern "C"

namespace xui_host {

void setPanelSize(unsigned width, unsigned height) {
    auto& s = state();
    Lock lock(s.mutex);
    s.panelWidth = width;
    s.panelHeight = height;
}

void reset() {
    if (XuiIsRunning())
        XuiClose();
    {
        auto& s = state();
        Lock lock(s.mutex);
        s.panelWidth = 320;
        s.panelHeight = 240;
        s.statusbarIcons.clear();
        s.imageFiles.clear();
        s.failNextOpen = false;
        s.failCanvasAfter = -1;
        s.animationPinned = false;
        s.measuredTexts = 0;
        s.measuredBytes = 0;
    }
    keysReset();
    traceReset();
}

int textWidth(const std::string& font, unsigned size, const std::string& text) {
    auto& s = state();
    Lock lock(s.mutex);
    if (size == 0 || size > kMaxTextSize)
        return 0;
    for (auto& [handle, f] : s.fonts)
        if ("f" + std::to_string(f->id) == font)
            return xui_impl::textWidth(*f, size, text.c_str());
    return 0;
}

TextMeasurements textMeasurements() {
    auto& s = state();
    Lock lock(s.mutex);
    return {s.measuredTexts, s.measuredBytes};
}

Pixels screen() {
    auto& s = state();
    Lock lock(s.mutex);
    return compositeScreen();
}

Pixels canvas(const XuiWindow* handle) {
    auto& s = state();
    Lock lock(s.mutex);
    Canvas* c = findCanvas(handle);
    return c ? composite(*c) : Pixels{};
}

Pixels image(const XuiImg* handle) {
    auto& s = state();
    Lock lock(s.mutex);
    Pixels p;
    if (Image* img = findImage(handle)) {
        p.width = img->width;
        p.height = img->height;
        p.argb = img->px;
    }
    return p;
}

bool savePng(const Pixels& pixels, const std::string& path) {
    return encodePngFile(pixels, path.c_str());
}

Pixels loadPng(const std::string& path) {
    Pixels p;
    if (auto img = decodePngFile(path.c_str())) {
        p.width = img->width;
        p.height = img->height;
        p.argb = std::move(img->px);
    }
    return p;
}

void pinAnimationTime(std::chrono::milliseconds sinceStart) {
    auto& s = state();
    Lock lock(s.mutex);
    s.animationPinned = true;
    s.pinnedAnimationTime = sinceStart;
}

void unpinAnimationTime() {
    auto& s = state();
    Lock lock(s.mutex);
    s.animationPinned = false;
}

void failCanvasCreation(unsigned after) {
    auto& s = state();
    Lock lock(s.mutex);
    s.failCanvasAfter = int(after);
}

void failNextOpen() {
    auto& s = state();
    Lock lock(s.mutex);
    s.failNextOpen = true;
}

std::string imageFile(const std::string& name) {
    auto& s = state();
    Lock lock(s.mutex);
    if (name.size() < 2 || name[0] != 'i')
        return "";
    const auto it = s.imageFiles.find(std::atoi(name.c_str() + 1));
    return it == s.imageFiles.end() ? "" : it->second;
}

std::string statusbarIcon(int icon) {
    auto& s = state();
    Lock lock(s.mutex);
    auto it = s.statusbarIcons.find(icon);
    return it == s.statusbarIcons.end() ? std::string() : it->second;
}

} // namespace xui_host
