#include "ui/UserInterface.hpp"

#include "ui/KeyBoard.hpp"
#include "ui/Window.hpp"

#include <stdexcept>

std::string getUserInterfaceVersion() {
    return "1.2.1.0";
}

namespace ui {

class UserInterface::impl : public IUserInterface {
public:
    explicit impl(const GraphicsDeviceParams& params) : graphics(std::make_unique<GraphicsDevice>(params)) {}

    ~impl() override {
        // No key may reach a window that is about to go: the keypad stops first.
        keyboard.reset();
        graphics.reset();
    }

    void initialize() override {
        keyboard = std::make_shared<input::KeyBoard>();
        if (!keyboard)
            throw std::runtime_error("inputManager_");
        const unsigned width = graphics->getScreenWidth();
        const unsigned height = graphics->getScreenHeight();
        auto window = std::make_shared<Window>(width, height);
        graphics->setWindow(window);
    }

    void enableContactless(const geom::rectangle& area,
                           const CtlsStatusIndicatorConfiguration& configuration) override {
        if (!graphics)
            return;
        if (std::shared_ptr<Window> window = graphics->getWindow())
            detail::configureContactlessIndicator(area, *window, graphics.get(), configuration);
    }

    geom::rectangle screenSize() override {
        if (!graphics)
            return {};
        return {0, 0, graphics->getScreenWidth(), graphics->getScreenHeight()};
    }

private:
    std::unique_ptr<GraphicsDevice> graphics;
    std::shared_ptr<input::KeyBoard> keyboard;
};

void detail::configureContactlessIndicator(const geom::rectangle& area, Window& window, IGraphics* graphics,
                                           const CtlsStatusIndicatorConfiguration& configuration) {
    auto indicator = std::make_shared<ContactlessStatusIndicator>(area.x, area.y, area.width, area.height);
    indicator->initialize(configuration, graphics);
    window.setContactlessStatusIndicator(indicator);
    // The worker's first redraw may come before the window knows the indicator: show it now.
    if (graphics)
        graphics->updateHeader();
}

UserInterface::UserInterface(const GraphicsDeviceParams& params) : impl_(std::make_unique<impl>(params)) {}
UserInterface::~UserInterface() = default;

void UserInterface::initialize() {
    impl_->initialize();
}
geom::rectangle UserInterface::screenSize() {
    return impl_->screenSize();
}
void UserInterface::enableContactless(const geom::rectangle& area,
                                      const CtlsStatusIndicatorConfiguration& configuration) {
    impl_->enableContactless(area, configuration);
}

} // namespace ui
