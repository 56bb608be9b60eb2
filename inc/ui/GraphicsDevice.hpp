// The graphics device: opens the display, owns the double-buffered main and header canvases
// and the rendering thread, and implements the graphics service.
#pragma once

#include "ui/IGraphics.hpp"

#include <memory>

struct GraphicsDeviceParams {
    int rotate = 0;    // passed to Xui as "ROTATE=%d"
    int statusbar = 0; // status-bar height in pixels, "STATUSBAR=%d"; the main area is the rest
};

// Sizes of the main and header canvases as created by the last graphics device; 0 before.
int GetMainCanvasWidth();
int GetMainCanvasHeight();
int GetHeaderWidth();
int GetHeaderHeight();

namespace ui {

// Construction opens Xui (unless already running, which is reused as it is), creates the
// canvases, starts the rendering thread and registers this object as the graphics service;
// a display that fails to open leaves a device that draws nothing. update() wakes the
// rendering thread, which draws the window's view into the hidden main canvas and presents
// it; requests made during a draw collapse into one more draw. Headers and render() are
// drawn synchronously on the caller's thread. A view's draw failure on the rendering thread
// is logged under "GraphicsDevice"; failures of the synchronous operations propagate.
//
// Locks, outermost first: draw, window, canvas; window before header. Keys reach a view by
// two paths. A key given to this device's injectKeyPress runs the view's handler under the
// device's window lock, so that handler must not call setContext, getContext, reset or
// updateHeader. Keys from the keypad (the keypad thread calls Window::injectKeyPress
// directly) hold no lock of this device: there a view may replace itself.
class GraphicsDevice : public IGraphics {
public:
    explicit GraphicsDevice(const GraphicsDeviceParams& params);
    ~GraphicsDevice() override;
    GraphicsDevice(const GraphicsDevice&) = delete;
    GraphicsDevice& operator=(const GraphicsDevice&) = delete;

    void reset() override;
    void update() override;
    void render(Widget* widget) override;
    void setWindow(const std::shared_ptr<Window>& window) override;
    void setContext(const std::shared_ptr<IContainer>& view) override;
    std::shared_ptr<IContainer> getContext() const override;
    // Returns once no draw is in progress; a requested draw that has not begun is not awaited.
    void waitForDraw() override;
    void updateHeader() override;
    unsigned getScreenWidth() const override;
    unsigned getScreenHeight() const override;
    std::shared_ptr<Window> getWindow() const override;
    // The hidden main canvas, the one to draw into.
    _XuiWindow* getRootCanvas() const override;
    void injectKeyPress(device::input::Key key) override;
    // Re-applies the branding background colours and redraws view and header.
    void reInitializeFrameBuffers() override;

private:
    class GraphicsDeviceImpl;
    std::unique_ptr<GraphicsDeviceImpl> impl_;
};

} // namespace ui
