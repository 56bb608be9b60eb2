#include "ui/Xui.hpp"

#include <osal/log.hpp>

#include <algorithm>
#include <atomic>

namespace ui {

std::mutex Xui::xuiMutex_;

namespace {

// The wrapper pattern: one scoped lock around exactly one platform call.
template <class Function, class... Args> auto serialised(Function function, Args... args) {
    std::lock_guard<std::mutex> lock(Xui::xuiMutex_);
    return function(args...);
}

} // namespace

int Xui::Open(int argc, char** argv) {
    return serialised(XuiOpen, argc, argv);
}
int Xui::Suspend() {
    return serialised(XuiSuspend);
}
int Xui::Resume() {
    return serialised(XuiResume);
}
int Xui::IsRunning() {
    return serialised(XuiIsRunning);
}
int Xui::Close() {
    return serialised(XuiClose);
}

int Xui::HasKey() {
    return serialised(XuiHasKey);
}
int Xui::GetKey() {
    return XuiGetKey();
}
int Xui::ClearKey() {
    return serialised(XuiClearKey);
}

_XuiWindow* Xui::RootCanvas() {
    return serialised(XuiRootCanvas);
}
_XuiWindow* Xui::StatusbarCanvas() {
    return serialised(XuiStatusbarCanvas);
}

_XuiFont* Xui::CreateFont(char* path, int index, XuiFontSet fontSet) {
    return serialised(XuiCreateFont, path, index, fontSet);
}
int Xui::DestroyFont(_XuiFont* font) {
    return serialised(XuiDestroyFont, font);
}
int Xui::CanvasDrawText(_XuiWindow* canvas, unsigned x, unsigned y, unsigned size, _XuiFont* font,
                        XuiTextStyle style, XuiColor color, const char* text) {
    return serialised(XuiCanvasDrawText, canvas, x, y, size, font, style, color, text);
}
int Xui::CanvasDrawImg(_XuiWindow* canvas, unsigned x, unsigned y, unsigned width, unsigned height,
                       XuiBgStyle style, _XuiImg* image) {
    return serialised(XuiCanvasDrawImg, canvas, x, y, width, height, style, image);
}
int Xui::CanvasDrawRect(_XuiWindow* canvas, unsigned x, unsigned y, unsigned width, unsigned height,
                        XuiColor color, int radius, int fill) {
    return serialised(XuiCanvasDrawRect, canvas, x, y, width, height, color, radius, fill);
}
int Xui::ClearArea(_XuiWindow* canvas, unsigned x, unsigned y, unsigned width, unsigned height) {
    return serialised(XuiClearArea, canvas, x, y, width, height);
}
int Xui::TextWidth(_XuiFont* font, int size, const char* text) {
    return serialised(XuiTextWidth, font, size, text);
}

_XuiWindow* Xui::CreateCanvas(_XuiWindow* parent, unsigned x, unsigned y, unsigned width, unsigned height) {
    return serialised(XuiCreateCanvas, parent, x, y, width, height);
}
_XuiWindow* Xui::CreateCanvasEx(_XuiWindow* parent, unsigned x, unsigned y, unsigned width, unsigned height,
                                unsigned flags) {
    return serialised(XuiCreateCanvasEx, parent, x, y, width, height, flags);
}
int Xui::CanvasMoveToY(_XuiWindow* canvas, unsigned y) {
    return serialised(XuiCanvasMoveToY, canvas, y);
}
int Xui::DestroyWindow(_XuiWindow* window) {
    return serialised(XuiDestroyWindow, window);
}
int Xui::ShowWindow(_XuiWindow* window, int visible, int flags) {
    return serialised(XuiShowWindow, window, visible, flags);
}
int Xui::CanvasSetBackground(_XuiWindow* canvas, XuiBgStyle style, _XuiImg* image, XuiColor color) {
    return serialised(XuiCanvasSetBackground, canvas, style, image, color);
}

_XuiWindow* Xui::CreateButton(_XuiWindow* parent, unsigned x, unsigned y, unsigned width, unsigned height) {
    return serialised(XuiCreateButton, parent, x, y, width, height);
}
int Xui::ButtonSetStat(_XuiWindow* button, XuiButtonStatType type, _XuiButtonStat* stat) {
    return serialised(XuiButtonSetStat, button, type, stat);
}
int Xui::ButtonSetKey(_XuiWindow* button, int key) {
    return serialised(XuiButtonSetKey, button, key);
}
_XuiWindow* Xui::CreateSignatureBoard(_XuiWindow* parent, unsigned x, unsigned y, unsigned width,
                                      unsigned height) {
    return serialised(XuiCreateSignatureBoard, parent, x, y, width, height);
}
int Xui::SigBoardSetStat(_XuiWindow* board, _XuiSigBoardStat* stat) {
    return serialised(XuiSigBoardSetStat, board, stat);
}
_XuiImg* Xui::SigBoardImg(_XuiWindow* board) {
    return serialised(XuiSigBoardImg, board);
}
void* Xui::SigBoardSignData(_XuiWindow* board) {
    return serialised(XuiSigBoardSignData, board);
}

_XuiImg* Xui::CaptureScreen() {
    return serialised(XuiCaptureScreen);
}
_XuiImg* Xui::CaptureCanvas(_XuiWindow* canvas, unsigned x, unsigned y, unsigned width, unsigned height) {
    return serialised(XuiCaptureCanvas, canvas, x, y, width, height);
}
_XuiImg* Xui::ImgLoadFromFile(const char* path) {
    return serialised(XuiImgLoadFromFile, path);
}
_XuiImg* Xui::ImgLoadFromMem(unsigned char* data, unsigned long length, int format) {
    return serialised(XuiImgLoadFromMem, data, length, format);
}
int Xui::ImgSaveToFile(_XuiImg* image, const char* path) {
    return serialised(XuiImgSaveToFile, image, path);
}
int Xui::ImgFree(_XuiImg* image) {
    return serialised(XuiImgFree, image);
}
int Xui::ImgToRgba(_XuiImg* image, char* rgba) {
    return serialised(XuiImgToRgba, image, rgba);
}
_XuiImg* Xui::RgbaToImg(char*, unsigned, unsigned, unsigned) {
    return nullptr;
}
_XuiImg* Xui::ImgTransform(_XuiImg* image, XuiTransform transform) {
    return serialised(XuiImgTransform, image, transform);
}

_XuiWindow* Xui::CreateGif(_XuiWindow* parent, unsigned x, unsigned y, unsigned width, unsigned height,
                           const char* path) {
    return serialised(XuiCreateGif, parent, x, y, width, height, path);
}

int Xui::SetStatusbarIcon(int icon, const char* text) {
    return serialised(XuiSetStatusbarIcon, icon, text);
}
int Xui::GetHzString(_XuiImeAttr attr, char* buffer, unsigned minLength, unsigned maxLength) {
    return serialised(XuiGetHzString, attr, buffer, minLength, maxLength);
}
int Xui::GetString(_XuiGetStrAttr attr, char* buffer, unsigned char mode, unsigned minLength,
                   unsigned maxLength) {
    return serialised(XuiGetString, attr, buffer, mode, minLength, maxLength);
}
char* Xui::BidiStrdup(const char* text) {
    return serialised(XuiBidiStrdup, text);
}

namespace fonts {
namespace {

// Xui takes the path as a writable string.
char fontPath[] = "./res/Carlito-Regular.ttf";
_XuiFont* cachedFont = nullptr;

} // namespace

unsigned getFontSize() {
    return 20;
}

_XuiFont* getFont() {
    if (!cachedFont) {
        cachedFont = Xui::CreateFont(fontPath, 0, XUI_FONT_SET_DEFAULT);
        // Text then measures 0 and draws nothing; say why, once.
        static std::atomic<bool> reported{false};
        if (!cachedFont && !reported.exchange(true)) {
            LOG(LogLevel::Error) << "fonts: cannot load " << fontPath << "; text will not be drawn";
        }
    }
    return cachedFont;
}

_XuiFont* loadFont() {
    return loadFont(XUI_FONT_SET_DEFAULT);
}

_XuiFont* loadFont(XuiFontSet fontSet) {
    cachedFont = Xui::CreateFont(fontPath, 0, fontSet);
    return cachedFont;
}

XuiColor intToXuiColor(unsigned color) {
    return (color >> 8) | 0xFF000000u;
}

unsigned GetTextWidth(const char* text) {
    return GetTextWidth(text, getFontSize());
}

unsigned GetTextWidth(const char* text, unsigned size) {
    // Xui's failure (-1, without a font) must not read as a width of four billion pixels.
    const int width = Xui::TextWidth(getFont(), static_cast<int>(size), text);
    return static_cast<unsigned>(std::max(width, 0));
}

} // namespace fonts
} // namespace ui
