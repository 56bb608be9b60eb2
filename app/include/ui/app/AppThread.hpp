// An application's own thread. Key handlers run on the library's keypad thread,
// where they must not block (a Success state change blocks its caller for the whole LED
// sequence) nor take the locator's indicator lock (it comes before the keyboard's lock in the
// library's lock order). They post the work here instead, and it runs in order.
#pragma once

#include <osal/log.hpp>

#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

namespace app {

class AppThread {
public:
    AppThread() : thread_([this] { run(); }) {}
    ~AppThread() {
        {
            std::lock_guard<std::mutex> lock(mutex_);
            stopping_ = true;
        }
        changed_.notify_all();
        thread_.join();
    }
    AppThread(const AppThread&) = delete;
    AppThread& operator=(const AppThread&) = delete;

    void post(std::function<void()> task) {
        {
            std::lock_guard<std::mutex> lock(mutex_);
            tasks_.push_back(std::move(task));
        }
        changed_.notify_all();
    }

    // Returns once every task posted so far (and any they posted) has run.
    void waitUntilIdle() {
        std::unique_lock<std::mutex> lock(mutex_);
        changed_.wait(lock, [this] { return tasks_.empty() && !busy_; });
    }

    bool onThisThread() const { return std::this_thread::get_id() == thread_.get_id(); }

private:
    void run() {
        std::unique_lock<std::mutex> lock(mutex_);
        for (;;) {
            changed_.wait(lock, [this] { return stopping_ || !tasks_.empty(); });
            if (tasks_.empty())
                return;
            auto task = std::move(tasks_.front());
            tasks_.pop_front();
            busy_ = true;
            lock.unlock();
            try {
                task();
            } catch (const std::exception& e) {
                LogException("app/AppThread", __LINE__, e); // the application goes on
            } catch (...) {
                LogException("app/AppThread", __LINE__);
            }
            lock.lock();
            busy_ = false;
            changed_.notify_all();
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> tasks_;
    bool busy_ = false;
    bool stopping_ = false;
    std::thread thread_;
};

} // namespace app
