// The contactless card reader's status indicator: four LEDs drawn over the status header, the
// state machine that lights them in the card schemes' sequences, and its tones.
#pragma once

#include "ui/Image.hpp"
#include "ui/Widget.hpp"
#include "utl/thread.hpp"

#include <osal/event.hpp>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace ui {
class IGraphics;
} // namespace ui

// How the indicator behaves; times in milliseconds, frequencies in hertz.
struct CtlsStatusIndicatorConfiguration {
    CtlsStatusIndicatorConfiguration();

    int ledScheme;                         // 1 or 2 (scheme 2 adds the error LED and the processing LED)
    int idlePeriodMs;                      // dark time before each idle flash
    int idleFlashMs;                       // length of the idle flash of the first LED
    int successToneDurationMs;             //
    int successToneFrequencyHz;            //
    int successStepMs;                     // scheme 1: twice the pause between successive success LEDs
    int successStepScheme2Ms;              // scheme 2: pause between the second and third LED
    int successHoldMs;                     // from the last success LED to all dark
    int alertToneDurationMs;               // one alert beep
    int alertToneFrequencyHz;              //
    int alertTonePauseMs;                  // silence between alert beeps
    int alertToneCount;                    // beeps per alert
    std::vector<std::string> ledOnImages;  // lit picture of LEDs 1 to 4; exactly four
    std::vector<std::string> ledOffImages; // dark picture of LEDs 1 to 4; exactly four
    bool processingLedEnabled;             // scheme 2: light the second LED while processing
    bool alertToneEnabled;                 // false silences every alert tone
};

namespace ui {

// One LED: a lit and a dark picture, switched from any thread. Copies get their own lock and
// decode their own pictures.
class Led : public Widget {
public:
    // Throws what ui::Image throws for a picture that cannot be loaded.
    Led(unsigned int x, unsigned int y, unsigned int width, unsigned int height,
        const std::string& onImagePath, const std::string& offImagePath);
    Led(const Led& other);
    Led(Led&& other);
    ~Led() override;
    Led& operator=(const Led& other);
    Led& operator=(Led&& other);

    bool isOn() const;
    void setOn(bool on);

    // The picture of the current state at the LED's x; its y is the one it was built with.
    void draw(_XuiWindow* window) override;

private:
    void takeBoxAndState(const Led& other);

    bool on_ = false;
    mutable std::mutex mutex_;
    Image onImage_;
    Image offImage_;
};

// A row of LEDs spread evenly across the strip's width, each centred in its own slot. The
// slots are measured from x = 0, not from the strip's own x: intended, the indicator's area
// always starts at the left edge. LEDs are added before anyone draws or switches them.
class LedStrip : public Widget {
public:
    LedStrip(unsigned int x, unsigned int y, unsigned int width, unsigned int height);
    ~LedStrip() override;

    void addLed(const Led& led);
    // Indexes from 0. Only an index above the count is refused; the count itself passes the
    // test, as on the terminal, and then finds no LED: false, and nothing switched.
    bool getLed(unsigned int index) const;
    void setLed(unsigned int index, bool on);
    // LED by LED, never all locked at once.
    void setAll(bool on);

    void draw(_XuiWindow* window) override;

private:
    std::vector<Led> leds_;
};

// The state the application requests, as stored. Any other value leaves the LEDs as they are.
enum class State : int {
    Off = 0,
    Idle = 1,       // first LED flashes every idle period
    Ready = 2,      // first LED lit
    Processing = 3, // scheme 2 with the processing LED: second LED lit
    Success = 4,    // the success sequence with its tone, then dark
    Error = 5,      // dark (scheme 2: fourth LED lit), alert tone
    ErrorAlternate = 6,
};

enum class Tone : int {
    SuccessTone = 0,
    AlertTone = 1,
};

// The indicator. The application changes its state through
// ServiceLocator::updateContactlessIndicator; a worker thread of its own turns each state into
// LED patterns, timed sequences and tones, and has the header redrawn whenever the LEDs change.
// The header is drawn on whichever thread asks for it, this one included.
//
// Locks: the state mutex is held by the worker for a whole round (a state change waits for a
// success sequence to end); the LED mutex only for one switch or one draw, never while
// waiting, so a header redraw never waits for a sequence. Worker errors are logged under
// "ctls/ContactlessStatusIndicator" and the worker goes on.
class ContactlessStatusIndicator : public Widget {
public:
    ContactlessStatusIndicator(unsigned int x, unsigned int y, unsigned int width, unsigned int height);
    // Stops the worker and waits for it: at once while it waits for a state change, or once
    // the success sequence or alert tone under way has played.
    ~ContactlessStatusIndicator() override;
    ContactlessStatusIndicator(const ContactlessStatusIndicator&) = delete;
    ContactlessStatusIndicator& operator=(const ContactlessStatusIndicator&) = delete;

    // Registers with the ServiceLocator, builds the four LEDs and starts the worker. Throws
    // std::runtime_error "CtlsStatusIndicator - Invalid LED Configuration" unless there are
    // exactly four pictures of each kind (the registration stays). Call once: a second call
    // while the worker runs ends the process.
    void initialize(const CtlsStatusIndicatorConfiguration& configuration, IGraphics* graphics);

    // A change to Success blocks the caller until the success sequence has played (about
    // 850 ms with the defaults); setting the current state again does nothing.
    void setState(State state);
    // The state last requested; waits while a success sequence plays.
    State getState() const;
    // On the caller's thread: the alert tone blocks for its beeps and pauses.
    void soundTone(Tone tone);
    // Has the header redrawn, once the worker runs.
    void update() const;

    void draw(_XuiWindow* window) override;

private:
    void workerFunc();
    void round(std::unique_lock<std::mutex>& state, std::mutex& delayMutex, AutomaticResetEvent<>& delay);
    bool waitForChange(std::unique_lock<std::mutex>& state,
                       std::optional<std::chrono::milliseconds> limit = std::nullopt);
    void playAlert();
    template <class Switch> void switchLeds(Switch change);

    std::atomic<bool> running_{false};
    std::atomic<bool> stopping_{false};
    std::atomic<bool> started_{false};
    CtlsStatusIndicatorConfiguration configuration_;
    State state_ = State::Off;
    unsigned changes_ = 0; // state changes made, and those the worker's round has seen
    unsigned seen_ = 0;
    mutable std::mutex stateMutex_;
    AutomaticResetEvent<std::mutex, std::condition_variable> stateChanged_;
    AutomaticResetEvent<std::mutex, std::condition_variable> sequenceDone_;
    utl::thread worker_;
    LedStrip strip_;
    std::mutex ledMutex_;
    IGraphics* graphics_ = nullptr;
};

} // namespace ui
