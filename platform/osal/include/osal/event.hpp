// An auto-reset event: notify_one sets it and wakes one waiter; a wait returns once it is set
// and clears it. A notification with nobody waiting is kept (once), never lost.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace osal::detail {
// What the platform sees of every event, with the event's own lock held: who signals it, who
// waits on it and for how long. The host's tests wait on these facts for the threads that use
// events (osal::host::waitUntilSettled); a terminal's platform may do nothing here.
void eventNotified(const void* event);
// A wait is about to begin (set: the event is set already). True when the platform lets a
// timed wait's time pass at once instead (virtual time, and an event nobody has ever signalled:
// a pause, not a wait for someone); the wait then ends there, as run out.
bool eventWaitBegins(const void* event, bool set, bool timed, std::chrono::milliseconds limit);
void eventWaitEnds(const void* event, bool set);
void eventDestroyed(const void* event);
} // namespace osal::detail

template <class Mutex = std::mutex, class ConditionVariable = std::condition_variable>
class AutomaticResetEvent {
public:
    AutomaticResetEvent() = default;
    AutomaticResetEvent(const AutomaticResetEvent&) = delete;
    AutomaticResetEvent& operator=(const AutomaticResetEvent&) = delete;
    ~AutomaticResetEvent() { osal::detail::eventDestroyed(this); }

    void notify_one() {
        {
            std::lock_guard<Mutex> guard(mutex_);
            set_ = true;
            osal::detail::eventNotified(this);
        }
        condition_.notify_one();
    }

    // Releases the caller's lock while waiting and takes it again before returning.
    template <class Lock> void wait(Lock& callerLock) {
        std::unique_lock<Mutex> guard(mutex_);
        osal::detail::eventWaitBegins(this, set_, false, std::chrono::milliseconds(0));
        callerLock.unlock();
        condition_.wait(guard, [this] { return set_; });
        set_ = false;
        osal::detail::eventWaitEnds(this, true);
        guard.unlock();
        callerLock.lock();
    }

    // As wait, with a limit; false when it ran out before the event was set.
    template <class Lock> bool wait_for(Lock& callerLock, std::chrono::milliseconds limit) {
        std::unique_lock<Mutex> guard(mutex_);
        if (osal::detail::eventWaitBegins(this, set_, true, limit))
            return false; // the time passed at once
        callerLock.unlock();
        const bool set = condition_.wait_for(guard, limit, [this] { return set_; });
        set_ = false;
        osal::detail::eventWaitEnds(this, set);
        guard.unlock();
        callerLock.lock();
        return set;
    }

private:
    Mutex mutex_;
    ConditionVariable condition_;
    bool set_ = false;
};
