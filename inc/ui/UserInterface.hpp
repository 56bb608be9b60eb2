// The application's entry point: brings the display, the keypad and the window up and down.
#pragma once

#include "ui/ContactlessStatusIndicator.hpp"
#include "ui/GraphicsDevice.hpp"
#include "ui/Widget.hpp"

#include <memory>
#include <string>

// "1.2.1.0"
std::string getUserInterfaceVersion();

namespace ui {

class IUserInterface {
public:
    virtual ~IUserInterface() {}
    virtual void initialize() = 0;
    // The main area below the status bar: (0, 0, width, height); all zero without a display.
    virtual geom::rectangle screenSize() = 0;
    virtual void enableContactless(const geom::rectangle& area,
                                   const CtlsStatusIndicatorConfiguration& configuration) = 0;
};

class Window;

namespace detail {
// Creates the indicator in area, starts it, has the window draw it over the header and redraws
// the header; a second call replaces the first indicator. Throws what
// ContactlessStatusIndicator::initialize throws.
void configureContactlessIndicator(const geom::rectangle& area, Window& window, IGraphics* graphics,
                                   const CtlsStatusIndicatorConfiguration& configuration);
} // namespace detail

// Construct it once, on the application's thread: the display opens and the rendering thread
// starts. initialize() (once) starts the keypad thread and creates the window; from then on
// views are set through the graphics service (ServiceLocator::getGraphicsService()).
// Destruction stops the keypad first, then the rendering thread, and closes the display.
class UserInterface : public IUserInterface {
public:
    explicit UserInterface(const GraphicsDeviceParams& params);
    ~UserInterface() override;
    UserInterface(const UserInterface&) = delete;
    UserInterface& operator=(const UserInterface&) = delete;

    // Throws XuiException "Xui is not running" when the display did not open.
    void initialize() override;
    geom::rectangle screenSize() override;
    // Adds the contactless indicator to the header, in area (header coordinates). Ignored
    // before initialize(): there is no window to draw it yet.
    void enableContactless(const geom::rectangle& area,
                           const CtlsStatusIndicatorConfiguration& configuration) override;

private:
    class impl;
    std::unique_ptr<impl> impl_;
};

} // namespace ui
