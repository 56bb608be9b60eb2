#include "ui/KeyBoard.hpp"

#include "ui/IGraphics.hpp"
#include "ui/Xui.hpp"
#include "utl/thread.hpp"

#include <osal/log.hpp>

#include <boost/exception/exception.hpp>

#include <atomic>
#include <mutex>

namespace ui::input {
namespace detail {

class impl {
public:
    impl();
    ~impl();
    impl(const impl&) = delete;
    impl& operator=(const impl&) = delete;

    void bind(std::function<void(device::input::Key)> handler);

private:
    void thread_impl(std::function<void(device::input::Key)>& handler);

    // Written under the mutex, read without it at the top of each pass.
    std::atomic<bool> running;
    utl::thread thread;
    std::function<void(device::input::Key)> handler;
    std::mutex mutex;
};

impl::impl() : running(true) {
    if (!Xui::IsRunning())
        throw XuiException("Xui is not running");
    thread = utl::thread([this] { thread_impl(handler); });
}

impl::~impl() {
    {
        std::lock_guard<std::mutex> lock(mutex);
        running = false;
    }
    if (thread.joinable())
        thread.join();
}

void impl::bind(std::function<void(device::input::Key)> replacement) {
    std::lock_guard<std::mutex> lock(mutex);
    handler.swap(replacement);
}

void impl::thread_impl(std::function<void(device::input::Key)>& bound) {
    for (;;) {
        if (!running)
            return;
        if (!Xui::IsRunning())
            return;
        // The line numbers are part of the log format that field tools match on.
        try {
            const device::input::Key key = device::input::getKeyFromSystemKey(Xui::GetKey());
            std::lock_guard<std::mutex> lock(mutex);
            if (bound)
                bound(key);
        } catch (const boost::exception& e) {
            LogException("KeyBoard", 102, e);
        } catch (const std::exception& e) {
            LogException("KeyBoard", 106, e);
        } catch (...) {
            LogException("KeyBoard", 110);
        }
    }
}

} // namespace detail

KeyBoard::KeyBoard() : impl_(std::make_unique<detail::impl>()) {
    ServiceLocator::addInputService(this);
}

KeyBoard::~KeyBoard() = default;

void KeyBoard::bind(const std::function<void(device::input::Key)>& handler) {
    std::function<void(device::input::Key)> copy = handler; // copied outside the lock
    impl_->bind(std::move(copy));
}

} // namespace ui::input
