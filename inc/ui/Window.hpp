// The one top-level window: the current view, the status header and the contactless
// indicator, each under its own recursive lock.
#pragma once

#include <osal/input.hpp>

#include <memory>

struct _XuiWindow;

namespace ui {

class IContainer;
class ContactlessStatusIndicator;

// Created by the user interface after the keypad service, which it binds to: from then on
// every key goes from the keypad thread straight to the current view. Its locks are
// recursive so that a view may replace itself while it is drawn or handles a key. Keys that
// arrive once the window is gone are dropped.
class Window {
public:
    Window(unsigned width, unsigned height);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    // Draws the view; false when there is none (nothing drawn).
    bool draw(_XuiWindow* canvas);
    // Draws the header, then the indicator over it; true even when neither is set.
    bool updateHeader(_XuiWindow* canvas);

    // Releases the old view first (it may be destroyed here), then stores the new one.
    void setView(const std::shared_ptr<IContainer>& view);
    std::shared_ptr<IContainer> getView() const;
    void setHeader(const std::shared_ptr<IContainer>& header);
    void setContactlessStatusIndicator(const std::shared_ptr<ContactlessStatusIndicator>& indicator);

    // Hands the key to the current view's handler, without holding any window lock; the view
    // is kept alive until its handler returns even if it is replaced meanwhile. A key with no
    // view is dropped. This is the keypad's path; GraphicsDevice::injectKeyPress calls it
    // with the device's window lock held (see there).
    void injectKeyPress(device::input::Key key);

private:
    class WindowImpl;
    std::shared_ptr<WindowImpl> impl_; // shared with a key being handled
};

} // namespace ui
