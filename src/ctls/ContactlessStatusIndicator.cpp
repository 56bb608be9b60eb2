#include "ui/ContactlessStatusIndicator.hpp"

#include "ui/IGraphics.hpp"

#include <osal/device.hpp>
#include <osal/log.hpp>

#include <chrono>
#include <optional>
#include <stdexcept>

CtlsStatusIndicatorConfiguration::CtlsStatusIndicatorConfiguration()
    : ledScheme(1), idlePeriodMs(5000), idleFlashMs(200), successToneDurationMs(500),
      successToneFrequencyHz(1500), successStepMs(200), successStepScheme2Ms(125), successHoldMs(650),
      alertToneDurationMs(200), alertToneFrequencyHz(750), alertTonePauseMs(200), alertToneCount(2),
      ledOnImages(4, "res/images/ctls/leds/green.png"), ledOffImages(4, "res/images/ctls/leds/black.png"),
      processingLedEnabled(false), alertToneEnabled(true) {}

namespace ui {

namespace {

// The terminal's logs have always reported worker errors at this line of this source.
constexpr int kWorkerErrorLine = 309;
constexpr unsigned kLedCount = 4;

std::chrono::milliseconds ms(int count) {
    return std::chrono::milliseconds(count);
}

} // namespace

ContactlessStatusIndicator::ContactlessStatusIndicator(unsigned int x, unsigned int y, unsigned int width,
                                                       unsigned int height)
    : Widget(x, y, width, height), strip_(x, y, width, height) {}

ContactlessStatusIndicator::~ContactlessStatusIndicator() {
    // No state change may arrive through the locator at an indicator that is going.
    ServiceLocator::removeContactlessStatusIndicator(this);
    stopping_ = true;
    running_ = false;
    // The worker notices the flag only when it wakes: wake it once, or a worker waiting for a
    // state change would keep the join (and the application's exit) waiting for ever.
    stateChanged_.notify_one();
    if (worker_.joinable())
        worker_.join();
}

void ContactlessStatusIndicator::initialize(const CtlsStatusIndicatorConfiguration& configuration,
                                            IGraphics* graphics) {
    configuration_ = configuration;
    graphics_ = graphics;
    ServiceLocator::addContactlessStatusIndicator(this);
    if (configuration_.ledOnImages.size() != kLedCount || configuration_.ledOffImages.size() != kLedCount)
        throw std::runtime_error("CtlsStatusIndicator - Invalid LED Configuration");
    for (unsigned i = 0; i < kLedCount; ++i)
        strip_.addLed(Led(0, 2, 15, 15, configuration_.ledOnImages[i], configuration_.ledOffImages[i]));
    worker_ = utl::thread([this] { workerFunc(); });
    started_ = true;
}

void ContactlessStatusIndicator::setState(State state) {
    std::unique_lock<std::mutex> lock(stateMutex_);
    if (state_ == state)
        return;
    state_ = state;
    ++changes_;
    stateChanged_.notify_one();
    // The worker needs the state mutex to play the sequence: the wait releases it. Without a
    // worker there is no sequence to wait for.
    if (state == State::Success && started_)
        sequenceDone_.wait(lock);
}

State ContactlessStatusIndicator::getState() const {
    std::lock_guard<std::mutex> lock(stateMutex_);
    return state_;
}

void ContactlessStatusIndicator::soundTone(Tone tone) {
    if (tone == Tone::SuccessTone)
        device::beep(configuration_.successToneFrequencyHz, configuration_.successToneDurationMs);
    else if (tone == Tone::AlertTone)
        playAlert();
}

void ContactlessStatusIndicator::playAlert() {
    if (!configuration_.alertToneEnabled)
        return;
    for (int i = 0; i < configuration_.alertToneCount; ++i) {
        if (i > 0)
            device::sleep(configuration_.alertToneDurationMs + configuration_.alertTonePauseMs);
        device::beep(configuration_.alertToneFrequencyHz, configuration_.alertToneDurationMs);
    }
}

void ContactlessStatusIndicator::update() const {
    if (running_ && graphics_)
        graphics_->updateHeader();
}

void ContactlessStatusIndicator::draw(_XuiWindow* window) {
    if (!isVisible())
        return;
    std::lock_guard<std::mutex> lock(ledMutex_);
    strip_.draw(window);
}

template <class Switch> void ContactlessStatusIndicator::switchLeds(Switch change) {
    std::lock_guard<std::mutex> lock(ledMutex_);
    change(strip_);
}

void ContactlessStatusIndicator::workerFunc() {
    running_ = true;
    if (stopping_) // destroyed before the worker got going
        running_ = false;
    // Delays wait on an event that nobody signals, so a state change cannot shorten them. Its
    // mutex is taken only around each delay, inside the state mutex, so that the two are always
    // taken in the same order.
    AutomaticResetEvent<> delay;
    std::mutex delayMutex;
    while (running_) {
        try {
            std::unique_lock<std::mutex> state(stateMutex_);
            round(state, delayMutex, delay);
        } catch (const std::exception& e) {
            LogException("ctls/ContactlessStatusIndicator", kWorkerErrorLine, e);
        } catch (...) {
            LogException("ctls/ContactlessStatusIndicator", kWorkerErrorLine);
        }
    }
}

// The event keeps a signal that nobody waited for, so a change made while the worker was busy
// between two waits would also end the wait of the round that already acts on it, and that
// round would play again (a second alert, a second success sequence). A wait therefore ends
// only for a change its round has not seen, or for the stop.
bool ContactlessStatusIndicator::waitForChange(std::unique_lock<std::mutex>& state,
                                               std::optional<std::chrono::milliseconds> limit) {
    const auto deadline = std::chrono::steady_clock::now() + limit.value_or(std::chrono::milliseconds(0));
    while (changes_ == seen_ && running_) {
        if (!limit) {
            stateChanged_.wait(state);
            continue;
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0 || !stateChanged_.wait_for(state, left))
            return changes_ != seen_;
    }
    return true;
}

// One round of the worker for the current state, under the state mutex.
void ContactlessStatusIndicator::round(std::unique_lock<std::mutex>& state, std::mutex& delayMutex,
                                       AutomaticResetEvent<>& delay) {
    const CtlsStatusIndicatorConfiguration& c = configuration_;
    seen_ = changes_;
    const auto pause = [&](int milliseconds) {
        std::unique_lock<std::mutex> delays(delayMutex);
        delay.wait_for(delays, ms(milliseconds));
    };
    const auto light = [&](unsigned led) { switchLeds([&](LedStrip& strip) { strip.setLed(led, true); }); };
    const auto allDark = [&] { switchLeds([](LedStrip& strip) { strip.setAll(false); }); };

    switch (state_) {
    case State::Off:
        allDark();
        update();
        waitForChange(state);
        break;
    case State::Idle:
        allDark();
        update();
        if (!waitForChange(state, ms(c.idlePeriodMs)) && state_ == State::Idle) {
            light(0);
            update();
            waitForChange(state, ms(c.idleFlashMs));
            switchLeds([](LedStrip& strip) { strip.setLed(0, false); });
            update();
        }
        break;
    case State::Ready:
        switchLeds([](LedStrip& strip) {
            strip.setAll(false);
            strip.setLed(0, true);
        });
        update();
        waitForChange(state);
        break;
    case State::Processing:
        if (c.ledScheme == 2 && c.processingLedEnabled) {
            light(1);
            update();
        }
        waitForChange(state);
        break;
    case State::Success: {
        std::chrono::system_clock::time_point t0{}; // the epoch: nothing left to hold
        if (c.ledScheme == 1) {
            light(1);
            device::beep(c.successToneFrequencyHz, c.successToneDurationMs);
            update();
            pause(c.successStepMs / 2);
            light(2);
            update();
            pause(c.successStepMs / 2);
            light(3);
            update();
            t0 = std::chrono::system_clock::now();
        } else if (c.ledScheme == 2) {
            switchLeds([](LedStrip& strip) {
                if (!strip.getLed(1))
                    strip.setLed(1, true);
            });
            device::beep(c.successToneFrequencyHz, c.successToneDurationMs);
            update();
            pause(c.successStepScheme2Ms);
            light(2);
            update();
            t0 = std::chrono::system_clock::now();
        }
        const auto elapsed =
            std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::system_clock::now() - t0)
                .count();
        if (c.successHoldMs - elapsed > 0)
            pause(static_cast<int>(c.successHoldMs - elapsed));
        allDark();
        sequenceDone_.notify_one();
        update();
        waitForChange(state);
        break;
    }
    case State::Error:
    case State::ErrorAlternate:
        switchLeds([&](LedStrip& strip) {
            strip.setAll(false);
            if (c.ledScheme == 2)
                strip.setLed(3, true);
        });
        playAlert();
        update();
        waitForChange(state);
        break;
    default:
        waitForChange(state);
        break;
    }
}

} // namespace ui
