// The keypad service: one thread that reads keys from Xui and hands each to one bound handler.
#pragma once

#include <osal/input.hpp>

#include <functional>
#include <memory>

namespace ui::input {

namespace detail {
class impl;
} // namespace detail

// Constructing it starts the keypad thread and registers it with the ServiceLocator; it
// throws XuiException "Xui is not running" when the display is not open. The handler runs on
// the keypad thread under the keyboard's lock: it must not call bind() nor destroy the
// keyboard. Destruction waits for the key read in progress to return.
class KeyBoard {
public:
    KeyBoard();
    ~KeyBoard();
    KeyBoard(const KeyBoard&) = delete;
    KeyBoard& operator=(const KeyBoard&) = delete;

    // Replaces the handler; an empty function unbinds (keys are then read and dropped).
    // Waits for a handler that is running to return.
    void bind(const std::function<void(device::input::Key)>& handler);

private:
    std::unique_ptr<detail::impl> impl_;
};

} // namespace ui::input
