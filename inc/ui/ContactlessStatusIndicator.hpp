// The contactless card reader's status indicator, drawn over the status header.
//
// This is the part the display core relies on: a widget with a requested state. Its LEDs,
// tones and worker thread are not built yet; until they are it draws nothing.
#pragma once

#include "ui/Widget.hpp"

#include <mutex>

namespace ui {

// The state the application requests, as stored.
enum class State : int {
    Off = 0,
    Idle = 1,
    Ready = 2,
    Processing = 3,
    Success = 4,
    Error = 5,
    ErrorAlternate = 6,
};

enum class Tone : int {
    SuccessTone = 0,
    AlertTone = 1,
};

class ContactlessStatusIndicator : public Widget {
public:
    ContactlessStatusIndicator(unsigned int x, unsigned int y, unsigned int width, unsigned int height);
    ~ContactlessStatusIndicator() override;

    // Records the requested state. Called through ServiceLocator::updateContactlessIndicator.
    void setState(State state);
    State getState() const;

    void draw(_XuiWindow* canvas) override;

private:
    State state_ = State::Off;
    mutable std::mutex stateMutex_;
};

} // namespace ui
