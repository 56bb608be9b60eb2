// An auto-reset event: notify_one sets it and wakes one waiter; a wait returns once it is set
// and clears it. A notification with nobody waiting is kept (once), never lost.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

template <class Mutex = std::mutex, class ConditionVariable = std::condition_variable>
class AutomaticResetEvent {
public:
    void notify_one() {
        {
            std::lock_guard<Mutex> guard(mutex_);
            set_ = true;
        }
        condition_.notify_one();
    }

    // Releases the caller's lock while waiting and takes it again before returning.
    template <class Lock> void wait(Lock& callerLock) {
        std::unique_lock<Mutex> guard(mutex_);
        callerLock.unlock();
        condition_.wait(guard, [this] { return set_; });
        set_ = false;
        guard.unlock();
        callerLock.lock();
    }

    // As wait, with a limit; false when it ran out before the event was set.
    template <class Lock> bool wait_for(Lock& callerLock, std::chrono::milliseconds limit) {
        std::unique_lock<Mutex> guard(mutex_);
        callerLock.unlock();
        const bool set = condition_.wait_for(guard, limit, [this] { return set_; });
        set_ = false;
        guard.unlock();
        callerLock.lock();
        return set;
    }

private:
    Mutex mutex_;
    ConditionVariable condition_;
    bool set_ = false;
};
