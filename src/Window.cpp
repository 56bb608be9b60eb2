#include "ui/Window.hpp"

#include "ui/ContactlessStatusIndicator.hpp"
#include "ui/IGraphics.hpp"
#include "ui/KeyBoard.hpp"
#include "ui/Widget.hpp"

#include <mutex>
#include <utility>

namespace ui {

class Window::WindowImpl : public std::enable_shared_from_this<WindowImpl> {
public:
    WindowImpl() = default;

    // The keypad holds the window weakly: a key that arrives once the window is gone (replaced
    // by a second initialize, or destroyed) is dropped, and a window stays alive until the
    // key it is handling has been handled.
    void bindKeypad() {
        if (input::KeyBoard* keyboard = ServiceLocator::getInputService()) {
            std::weak_ptr<WindowImpl> self = shared_from_this();
            keyboard->bind([self](device::input::Key key) {
                if (std::shared_ptr<WindowImpl> window = self.lock())
                    window->injectKeyPress(key);
            });
        }
    }

    ~WindowImpl() {
        indicator_.reset();
        view_.reset();
        header_.reset();
    }

    bool draw(_XuiWindow* canvas) {
        std::lock_guard<std::recursive_mutex> lock(viewMutex_);
        if (!view_)
            return false;
        // The view may replace itself while it draws: it lives until its draw returns.
        const std::shared_ptr<IContainer> view = view_;
        view->draw(canvas);
        return true;
    }

    bool updateHeader(_XuiWindow* canvas) {
        {
            std::lock_guard<std::recursive_mutex> lock(headerMutex_);
            if (header_)
                header_->draw(canvas);
        }
        std::lock_guard<std::recursive_mutex> lock(indicatorMutex_);
        if (indicator_)
            indicator_->draw(canvas);
        return true;
    }

    void setView(const std::shared_ptr<IContainer>& view) {
        std::lock_guard<std::recursive_mutex> lock(viewMutex_);
        view_.reset();
        view_ = view;
    }

    std::shared_ptr<IContainer> getView() const {
        std::lock_guard<std::recursive_mutex> lock(viewMutex_);
        return view_;
    }

    void setHeader(const std::shared_ptr<IContainer>& header) {
        std::lock_guard<std::recursive_mutex> lock(headerMutex_);
        header_ = header;
    }

    void setContactlessStatusIndicator(const std::shared_ptr<ContactlessStatusIndicator>& indicator) {
        // The indicator replaced is destroyed after the lock is released: its destructor joins
        // a worker that may be waiting for this lock to draw the header.
        std::shared_ptr<ContactlessStatusIndicator> previous;
        std::lock_guard<std::recursive_mutex> lock(indicatorMutex_);
        previous = std::exchange(indicator_, indicator);
    }

    void injectKeyPress(device::input::Key key) {
        std::shared_ptr<IContainer> view = getView();
        if (view)
            view->handleKeyPress(key);
    }

private:
    std::shared_ptr<IContainer> header_;
    mutable std::recursive_mutex headerMutex_;
    std::shared_ptr<IContainer> view_;
    mutable std::recursive_mutex viewMutex_;
    std::shared_ptr<ContactlessStatusIndicator> indicator_;
    mutable std::recursive_mutex indicatorMutex_;
};

// The window spans the panel: what it draws into is the device's, whatever size it was made with.
Window::Window(unsigned, unsigned) : impl_(std::make_shared<WindowImpl>()) {
    impl_->bindKeypad();
}
Window::~Window() = default;

bool Window::draw(_XuiWindow* canvas) {
    return impl_->draw(canvas);
}
bool Window::updateHeader(_XuiWindow* canvas) {
    return impl_->updateHeader(canvas);
}
void Window::setView(const std::shared_ptr<IContainer>& view) {
    impl_->setView(view);
}
std::shared_ptr<IContainer> Window::getView() const {
    return impl_->getView();
}
void Window::setHeader(const std::shared_ptr<IContainer>& header) {
    impl_->setHeader(header);
}
void Window::setContactlessStatusIndicator(const std::shared_ptr<ContactlessStatusIndicator>& indicator) {
    impl_->setContactlessStatusIndicator(indicator);
}
void Window::injectKeyPress(device::input::Key key) {
    impl_->injectKeyPress(key);
}

} // namespace ui
