// Host-only controls of the Xui stand-in, for tests, benchmarks and the simulator.
// Nothing in the UI library may include this header: a terminal has no such thing.
#pragma once

#include <xui.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace xui_host {

// Panel size before rotation, used by the next XuiOpen. Default 320 x 240.
void setPanelSize(unsigned width, unsigned height);

// Makes the next XuiOpen fail (it returns -1 and the display stays closed), as a terminal
// whose display cannot start.
void failNextOpen();
// Makes the canvas created after `after` more have been made fail (XuiCreateCanvas returns
// null), as a terminal short of memory for one more.
void failCanvasCreation(unsigned after);

// Closes the display if open, empties the key queue and the trace, restores the defaults
// (panel size, key wait limit, animation clock). Fonts stay: the library caches their handles.
void reset();

// Keys --------------------------------------------------------------------------------------
// Queues a key code (XUI_KEY_* or a digit character) for XuiGetKey; callable from any thread.
void pushKey(int code);
// How long XuiGetKey waits for a key before it returns XUI_KEY_NONE, so that a reader can
// notice it is being shut down; zero waits for ever. Default 100 ms.
void setKeyWaitLimit(std::chrono::milliseconds limit);
// Number of keys taken from the queue by XuiGetKey so far.
uint64_t keysRead();
// Number of XuiGetKey calls begun so far: once it grows past a key's read, the reader is done
// with that key.
uint64_t keyWaits();
// Blocks until every queued key has been read and the reader has come back for the next one
// (so whatever it does with a key is done); false on time-out, as when nothing reads keys.
bool waitForKeysHandled(std::chrono::milliseconds timeout);

// Trace -------------------------------------------------------------------------------------
// One Xui call as the library made it. Handles are named: "root", "statusbar", "c<n>" for
// created canvases, "f<n>" fonts, "i<n>" images, "null"; texts are quoted; colours in hex.
struct Call {
    std::string function; // without the Xui prefix, e.g. "CanvasDrawText"
    std::vector<std::string> args;
    std::chrono::steady_clock::time_point at; // when the call was made
    std::string str() const;                  // "CanvasDrawText(c1, 0, 0, 20, f1, 0, 0xff000000, \"Hi\")"
};
void setTracing(bool enabled); // off by default
// Adds a listener called with every Xui call as it is made, on the calling thread, whether or
// not the trace is on: for recorders that watch a long session without keeping it all. Any
// number may listen, each added and removed by its owner (reset() leaves them). A listener
// runs with the stand-in's lock held: it must not call Xui (nor xui_host).
int addCallListener(std::function<void(const Call&)> listener);
void removeCallListener(int id);
void clearTrace();
std::vector<Call> trace();
std::vector<Call> trace(const std::string& function); // only the calls of one function
std::string nameOf(const void* handle);

// Frames ------------------------------------------------------------------------------------
// A frame is shown each time a canvas is made visible (XuiShowWindow with 1).
uint64_t framesShown();
// Waits until at least count frames have been shown; false on time-out.
bool waitForFrames(uint64_t count, std::chrono::milliseconds timeout);
// The same for the main area only: canvases of the root canvas made visible, which is what a
// rendering thread presents (the status bar's canvases are not counted here).
uint64_t mainFramesShown();
bool waitForMainFrames(uint64_t count, std::chrono::milliseconds timeout);

// A frame of the main area begins with the first drawing into a canvas of the root after that
// canvas was hidden (or, drawing nothing, when it is shown): the rendering thread's work on it
// started then. Counted from the first display, never reset.
uint64_t mainFramesBegun();
// What a canvas showed when it was shown: every call that drew into it since it was last hidden
// or given a background, while calls are traced or listened to.
struct Frame {
    uint64_t number = 0; // of the main frames shown, for the main area; 0: none yet
    uint64_t begun = 0;  // of the main frames begun, when this one began
    std::string canvas;  // "c2"
    unsigned width = 0;
    unsigned height = 0;
    std::vector<Call> calls;
    // The status bar's canvas shown last when this one was shown, as it was shown.
    std::string headerCanvas;
    unsigned headerWidth = 0;
    unsigned headerHeight = 0;
    std::vector<Call> headerCalls;
};
// The frame of the main area shown last while calls were traced or listened to.
Frame lastMainFrame();
// Waits until a frame of the main area that began after begun frames had begun is shown: a
// frame begun after mainFramesBegun() was read drew what was asked for before; false on time-out.
bool waitForMainFrameBegunAfter(uint64_t begun, std::chrono::milliseconds timeout);

// Text measurements -------------------------------------------------------------------------
// XuiTextWidth calls since start-up or the last reset(), and the bytes they measured: on a
// terminal the vendor's measuring is what a layout costs.
struct TextMeasurements {
    uint64_t calls = 0;
    uint64_t bytes = 0;
};
TextMeasurements textMeasurements();
// The width of text at size in a font the trace names ("f1"), as XuiTextWidth gives it, without
// counting it among the measurements; 0 for an unknown font.
int textWidth(const std::string& font, unsigned size, const std::string& text);

// Pixels ------------------------------------------------------------------------------------
struct Pixels {
    unsigned width = 0;
    unsigned height = 0;
    std::vector<uint32_t> argb; // row-major, 0xAARRGGBB, not premultiplied

    uint32_t at(unsigned x, unsigned y) const { return argb[size_t(y) * width + x]; }
    bool empty() const { return argb.empty(); }
};
// The composited panel: status bar strip on top, the root area below it.
Pixels screen();
// One canvas as composited with its visible children; empty for an unknown handle.
Pixels canvas(const XuiWindow* canvas);
Pixels image(const XuiImg* image);
bool savePng(const Pixels& pixels, const std::string& path);
Pixels loadPng(const std::string& path); // empty when unreadable

// GIF animation clock -----------------------------------------------------------------------
// By default animations follow the steady clock. A pinned clock shows the frame due at the
// given number of milliseconds since each animation started, until unpinned.
void pinAnimationTime(std::chrono::milliseconds sinceStart);
void unpinAnimationTime();

// The file an image handle named in the trace ("i3") was loaded from with XuiImgLoadFromFile;
// empty for images made otherwise.
std::string imageFile(const std::string& name);

// Status-bar icons set with XuiSetStatusbarIcon, by icon number.
std::string statusbarIcon(int icon);

} // namespace xui_host
