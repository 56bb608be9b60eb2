// The library's platform boundary. Every call into the terminal's graphics library goes
// through ui::Xui, which serialises it on one process-wide mutex: Xui itself is not
// thread-safe, and the application, the rendering thread and the keypad thread all use it.
#pragma once

#include <xui.h>

#include <mutex>
#include <stdexcept>
#include <string>

// Raised by the graphics device and the keypad thread when they find Xui not running.
class XuiException : public std::runtime_error {
public:
    explicit XuiException(const std::string& message) : std::runtime_error(message) {}
};

namespace ui {

// Static wrappers, one per Xui function, named without the prefix. Each locks xuiMutex_ for
// the single platform call only (so no wrapper may be called while it is held) and returns
// Xui's result untouched. A failure to lock throws std::system_error.
class Xui {
public:
    Xui() = delete;

    static int Open(int argc, char** argv);
    static int Suspend();
    static int Resume();
    static int IsRunning();
    static int Close();

    static int HasKey();
    // Deliberately not serialised: the keypad thread waits in here while others draw.
    static int GetKey();
    static int ClearKey();

    static _XuiWindow* RootCanvas();
    static _XuiWindow* StatusbarCanvas();

    static _XuiFont* CreateFont(char* path, int index, XuiFontSet fontSet);
    static int DestroyFont(_XuiFont* font);
    static int CanvasDrawText(_XuiWindow* canvas, unsigned x, unsigned y, unsigned size, _XuiFont* font,
                              XuiTextStyle style, XuiColor color, const char* text);
    static int CanvasDrawImg(_XuiWindow* canvas, unsigned x, unsigned y, unsigned width, unsigned height,
                             XuiBgStyle style, _XuiImg* image);
    static int CanvasDrawRect(_XuiWindow* canvas, unsigned x, unsigned y, unsigned width, unsigned height,
                              XuiColor color, int radius, int fill);
    static int ClearArea(_XuiWindow* canvas, unsigned x, unsigned y, unsigned width, unsigned height);
    static int TextWidth(_XuiFont* font, int size, const char* text);

    static _XuiWindow* CreateCanvas(_XuiWindow* parent, unsigned x, unsigned y, unsigned width,
                                    unsigned height);
    static _XuiWindow* CreateCanvasEx(_XuiWindow* parent, unsigned x, unsigned y, unsigned width,
                                      unsigned height, unsigned flags);
    static int CanvasMoveToY(_XuiWindow* canvas, unsigned y);
    static int DestroyWindow(_XuiWindow* window);
    static int ShowWindow(_XuiWindow* window, int visible, int flags);
    static int CanvasSetBackground(_XuiWindow* canvas, XuiBgStyle style, _XuiImg* image, XuiColor color);

    static _XuiWindow* CreateButton(_XuiWindow* parent, unsigned x, unsigned y, unsigned width,
                                    unsigned height);
    static int ButtonSetStat(_XuiWindow* button, XuiButtonStatType type, _XuiButtonStat* stat);
    static int ButtonSetKey(_XuiWindow* button, int key);
    static _XuiWindow* CreateSignatureBoard(_XuiWindow* parent, unsigned x, unsigned y, unsigned width,
                                            unsigned height);
    static int SigBoardSetStat(_XuiWindow* board, _XuiSigBoardStat* stat);
    static _XuiImg* SigBoardImg(_XuiWindow* board);
    static void* SigBoardSignData(_XuiWindow* board);

    static _XuiImg* CaptureScreen();
    static _XuiImg* CaptureCanvas(_XuiWindow* canvas, unsigned x, unsigned y, unsigned width,
                                  unsigned height);
    static _XuiImg* ImgLoadFromFile(const char* path);
    static _XuiImg* ImgLoadFromMem(unsigned char* data, unsigned long length, int format);
    static int ImgSaveToFile(_XuiImg* image, const char* path);
    static int ImgFree(_XuiImg* image);
    static int ImgToRgba(_XuiImg* image, char* rgba);
    // Intended gap in the platform boundary: always null, calls nothing.
    static _XuiImg* RgbaToImg(char* rgba, unsigned width, unsigned height, unsigned format);
    static _XuiImg* ImgTransform(_XuiImg* image, XuiTransform transform);

    static _XuiWindow* CreateGif(_XuiWindow* parent, unsigned x, unsigned y, unsigned width, unsigned height,
                                 const char* path);

    static int SetStatusbarIcon(int icon, const char* text);
    static int GetHzString(_XuiImeAttr attr, char* buffer, unsigned minLength, unsigned maxLength);
    static int GetString(_XuiGetStrAttr attr, char* buffer, unsigned char mode, unsigned minLength,
                         unsigned maxLength);
    static char* BidiStrdup(const char* text);

    // The one lock of the platform boundary; constant-initialised, so usable before main.
    static std::mutex xuiMutex_;
};

// The font service: one font, loaded lazily from "./res/Carlito-Regular.ttf". The cache is
// not locked; the first use (in practice the first label drawn) must happen on one thread.
namespace fonts {

// The default text size in pixels; word wrapping always measures at this size.
unsigned getFontSize();
_XuiFont* getFont();
// Creates the font anew and caches it; the previous handle is overwritten, not destroyed.
_XuiFont* loadFont();
_XuiFont* loadFont(XuiFontSet fontSet);
// 0xRRGGBBAA to Xui's 0xAARRGGBB, always opaque: the input's alpha byte is ignored.
XuiColor intToXuiColor(unsigned color);
unsigned GetTextWidth(const char* text);
unsigned GetTextWidth(const char* text, unsigned size);

} // namespace fonts
} // namespace ui
