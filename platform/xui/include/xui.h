/*
 * Xui: the terminal's graphics and input library, as the UI library sees it.
 *
 * This is the host stand-in: a software renderer that keeps every canvas in memory,
 * draws text with FreeType, decodes PNG with libpng and GIF with giflib, and reads keys
 * from a queue that tests and the simulator fill (see xui_host.hpp). On a terminal the
 * vendor's library replaces it; only the functions declared here may be used by the UI
 * library.
 *
 * Conventions of this stand-in:
 *  - Colours are 0xAARRGGBB. Alpha is honoured everywhere (0xFF is opaque).
 *  - Coordinates are canvas-relative pixels; anything outside a canvas is clipped.
 *  - Functions returning int return 0 on success and -1 on a bad argument (null handle,
 *    display not open). Functions returning handles return null on failure.
 *  - Every function is thread-safe; XuiGetKey blocks without holding any renderer lock.
 */
#ifndef XUI_H
#define XUI_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef uint32_t XuiColor;

/* A canvas or window. Only the first two fields are public; the rest is the renderer's. */
typedef struct _XuiWindow {
    unsigned int width;
    unsigned int height;
} XuiWindow;

/* A decoded image. Only the first two fields are public; the pixels are the renderer's. */
typedef struct _XuiImg {
    unsigned int width;
    unsigned int height;
} XuiImg;

typedef struct _XuiFont XuiFont;

typedef enum XuiFontSet {
    XUI_FONT_SET_DEFAULT = 0, /* the font file's own character map */
    XUI_FONT_SET_UNICODE = 1  /* the Unicode character map, selected explicitly */
} XuiFontSet;

typedef enum XuiTextStyle { XUI_TEXT_NORMAL = 0, XUI_TEXT_UNDERLINE = 1 } XuiTextStyle;

/* How a background image fills a canvas, and how XuiCanvasDrawImg places its image. */
typedef enum XuiBgStyle {
    XUI_BG_NORMAL = 0, /* image stretched to the given box (or the whole canvas) */
    XUI_BG_TILE = 1,   /* image repeated from the top-left corner */
    XUI_BG_CENTER = 2  /* image centred, not scaled */
} XuiBgStyle;

typedef enum XuiButtonStatType { XUI_BTN_NORMAL = 0, XUI_BTN_PRESSED = 1 } XuiButtonStatType;

typedef enum XuiTransform {
    XUI_TRANS_NONE = 0,
    XUI_TRANS_ROTATE_90 = 1,
    XUI_TRANS_ROTATE_180 = 2,
    XUI_TRANS_ROTATE_270 = 3,
    XUI_TRANS_MIRROR_X = 4, /* left and right exchanged */
    XUI_TRANS_MIRROR_Y = 5  /* top and bottom exchanged */
} XuiTransform;

/* The look of a button in one of its states. */
typedef struct _XuiButtonStat {
    XuiColor background;
    XuiColor foreground;
    const char* text;
    XuiImg* image;
} XuiButtonStat;

/* Pen of a signature board. */
typedef struct _XuiSigBoardStat {
    XuiColor background;
    XuiColor pen;
    unsigned int penWidth;
} XuiSigBoardStat;

/* Input-method attributes. The host has no input method; see XuiGetHzString. */
typedef struct _XuiImeAttr {
    XuiWindow* parent;
    unsigned int x, y, width, height;
} XuiImeAttr;

typedef struct _XuiGetStrAttr {
    XuiWindow* parent;
    unsigned int x, y, width, height;
    int timeoutMs;
} XuiGetStrAttr;

/* Key codes delivered by XuiGetKey. Digits are their ASCII characters. */
enum {
    XUI_KEY_NONE = 0,
    XUI_KEY_CLEAR = 0x08,
    XUI_KEY_ENTER = 0x0D,
    XUI_KEY_CANCEL = 0x1B,
    XUI_KEY_STAR = '*',
    XUI_KEY_HASH = '#',
    XUI_KEY_0 = '0', /* '1'..'9' follow */
    XUI_KEY_UP = 0x101,
    XUI_KEY_DOWN = 0x102,
    XUI_KEY_MENU = 0x103,
    XUI_KEY_ALPHA = 0x104,
    XUI_KEY_F1 = 0x111, /* F2..F4 follow */
    XUI_KEY_POWER = 0x120
};

/* Lifecycle. Arguments "ROTATE=%d" (0, 90, 180, 270) and "STATUSBAR=%d" (pixels) are understood. */
int XuiOpen(int argc, char** argv);
int XuiSuspend(void);
int XuiResume(void);
int XuiIsRunning(void);
int XuiClose(void);

/* Keys. XuiGetKey blocks until a key is queued or the display is closed (then it returns 0). */
int XuiHasKey(void);
int XuiGetKey(void);
int XuiClearKey(void);

/* Canvases. The root canvas is the area below the status bar; its children are composited
   in creation order, hidden ones not at all. */
XuiWindow* XuiRootCanvas(void);
XuiWindow* XuiStatusbarCanvas(void);
XuiWindow* XuiCreateCanvas(XuiWindow* parent, unsigned int x, unsigned int y, unsigned int width,
                           unsigned int height);
/* The sixth argument is accepted for compatibility and ignored by the host. */
XuiWindow* XuiCreateCanvasEx(XuiWindow* parent, unsigned int x, unsigned int y, unsigned int width,
                             unsigned int height, unsigned int flags);
int XuiCanvasMoveToY(XuiWindow* canvas, unsigned int y);
int XuiDestroyWindow(XuiWindow* window);
/* visible: 1 shows, 0 hides. The last argument is accepted and ignored. */
int XuiShowWindow(XuiWindow* window, int visible, int flags);
/* Sets what a cleared area shows and repaints the whole canvas with it. */
int XuiCanvasSetBackground(XuiWindow* canvas, XuiBgStyle style, XuiImg* image, XuiColor color);
int XuiClearArea(XuiWindow* canvas, unsigned int x, unsigned int y, unsigned int width, unsigned int height);

/* Drawing. y of text is the top of the line; the size is in pixels. */
XuiFont* XuiCreateFont(char* path, int index, XuiFontSet fontSet);
int XuiDestroyFont(XuiFont* font);
int XuiCanvasDrawText(XuiWindow* canvas, unsigned int x, unsigned int y, unsigned int size, XuiFont* font,
                      XuiTextStyle style, XuiColor color, const char* text);
int XuiTextWidth(XuiFont* font, int size, const char* text);
/* radius: corner radius in pixels; fill: 1 filled, 0 a one-pixel outline. */
int XuiCanvasDrawRect(XuiWindow* canvas, unsigned int x, unsigned int y, unsigned int width,
                      unsigned int height, XuiColor color, int radius, int fill);
int XuiCanvasDrawImg(XuiWindow* canvas, unsigned int x, unsigned int y, unsigned int width,
                     unsigned int height, XuiBgStyle style, XuiImg* image);

/* Buttons and the signature board: plain canvases on the host (no touch screen). */
XuiWindow* XuiCreateButton(XuiWindow* parent, unsigned int x, unsigned int y, unsigned int width,
                           unsigned int height);
int XuiButtonSetStat(XuiWindow* button, XuiButtonStatType type, XuiButtonStat* stat);
int XuiButtonSetKey(XuiWindow* button, int key);
XuiWindow* XuiCreateSignatureBoard(XuiWindow* parent, unsigned int x, unsigned int y, unsigned int width,
                                   unsigned int height);
int XuiSigBoardSetStat(XuiWindow* board, XuiSigBoardStat* stat);
XuiImg* XuiSigBoardImg(XuiWindow* board);
/* Points of the signature as x, y pairs ending with 0xFFFF, 0xFFFF; on the host always empty. */
void* XuiSigBoardSignData(XuiWindow* board);

/* Images. Every returned image belongs to the caller and is freed with XuiImgFree. */
XuiImg* XuiCaptureScreen(void);
XuiImg* XuiCaptureCanvas(XuiWindow* canvas, unsigned int x, unsigned int y, unsigned int width,
                         unsigned int height);
XuiImg* XuiImgLoadFromFile(const char* path);
/* The last argument is accepted and ignored: the format is read from the bytes. */
XuiImg* XuiImgLoadFromMem(unsigned char* data, unsigned long length, int format);
int XuiImgSaveToFile(XuiImg* image, const char* path);
int XuiImgFree(XuiImg* image);
/* Writes width * height * 4 bytes, R, G, B, A per pixel, rows top to bottom. */
int XuiImgToRgba(XuiImg* image, char* rgba);
XuiImg* XuiImgTransform(XuiImg* image, XuiTransform transform);

/* An animated GIF played in a child window of parent; null for a missing or malformed file. */
XuiWindow* XuiCreateGif(XuiWindow* parent, unsigned int x, unsigned int y, unsigned int width,
                        unsigned int height, const char* path);

/* The host has no status-bar icons of its own: the icon is remembered and reported by the trace. */
int XuiSetStatusbarIcon(int icon, const char* text);
/* The host has no input method: both write an empty string and return -1. */
int XuiGetHzString(XuiImeAttr attr, char* buffer, unsigned int minLength, unsigned int maxLength);
int XuiGetString(XuiGetStrAttr attr, char* buffer, unsigned char mode, unsigned int minLength,
                 unsigned int maxLength);
/* The host shows left-to-right text only: returns a malloc'ed copy of text, unchanged. */
char* XuiBidiStrdup(const char* text);

#ifdef __cplusplus
}
#endif

#endif /* XUI_H */
