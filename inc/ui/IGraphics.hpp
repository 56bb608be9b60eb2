// The graphics service interface, and the registry through which the library's services
// find each other.
#pragma once

#include <osal/input.hpp>

#include <memory>
#include <mutex>

struct _XuiWindow;

namespace ui {

class Widget;
class IContainer;
class Window;
class ContactlessStatusIndicator;
enum class State : int;

namespace input {
class KeyBoard;
} // namespace input

// What widgets and the contactless indicator need of the graphics device: redraw requests
// (update, any thread, never blocks), synchronous header redraws and single-widget renders.
class IGraphics {
public:
    virtual ~IGraphics() {}

    virtual void reset() = 0;
    virtual void update() = 0;
    virtual void render(Widget* widget) = 0;
    virtual void setWindow(const std::shared_ptr<Window>& window) = 0;
    virtual void setContext(const std::shared_ptr<IContainer>& view) = 0;
    virtual std::shared_ptr<IContainer> getContext() const = 0;
    virtual void waitForDraw() = 0;
    virtual void updateHeader() = 0;
    virtual unsigned getScreenWidth() const = 0;
    virtual unsigned getScreenHeight() const = 0;
    virtual std::shared_ptr<Window> getWindow() const = 0;
    virtual _XuiWindow* getRootCanvas() const = 0;
    virtual void injectKeyPress(device::input::Key key) = 0;
    virtual void reInitializeFrameBuffers() = 0;
};

// Static registry of non-owning pointers. Each service registers itself when constructed; a
// later registration replaces an earlier one. Only the indicator leaves when it is destroyed
// (application threads change its state at any time); the other slots are never cleared, so
// nothing may be called through them once the user interface is gone.
class ServiceLocator {
public:
    ServiceLocator() = delete;

    // Written once, before any other library thread exists, hence unlocked.
    static void addGraphicsService(IGraphics* graphics);
    static IGraphics* getGraphicsService();

    static void addInputService(input::KeyBoard* input);
    static input::KeyBoard* getInputService();

    static void addContactlessStatusIndicator(ContactlessStatusIndicator* indicator);
    // The one entry point for indicator state changes. Holds the indicator mutex for the
    // whole change, so a change that blocks (success) blocks every other caller meanwhile.
    static void updateContactlessIndicator(State state);

private:
    friend class ContactlessStatusIndicator;
    // Clears the slot if it still holds this indicator, which is being destroyed.
    static void removeContactlessStatusIndicator(ContactlessStatusIndicator* indicator);

    static IGraphics* graphics_;
    static input::KeyBoard* input_;
    static std::mutex inputMutex_;
    static ContactlessStatusIndicator* indicator_;
    static std::mutex indicatorMutex_;
};

} // namespace ui
