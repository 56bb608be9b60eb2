// A fixed pool of workers, one per hardware thread, taking tasks from a shared queue.
//
// The workers poll: an idle worker spins on the queue's mutex instead of sleeping. This is
// intended: the pool is for short bursts of queued work, and stopping it needs only a flag.
// Destroying the pool lets each worker finish the task in hand; queued tasks are dropped.
// A task that throws is logged and ends its worker for good.
#pragma once

#include "utl/thread.hpp"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <vector>

namespace utl {

// Selects the polling pool above; carries no data.
struct default_thread_pool_policy {};

// Joins every joinable thread of the sequence it refers to, in order, when destroyed.
class ThreadPoolCleaner {
public:
    explicit ThreadPoolCleaner(std::vector<thread>& threads) : threads_(threads) {}
    ThreadPoolCleaner(const ThreadPoolCleaner&) = delete;
    ThreadPoolCleaner& operator=(const ThreadPoolCleaner&) = delete;
    ~ThreadPoolCleaner();

private:
    std::vector<thread>& threads_;
};

template <class Policy> class thread_pool;

template <> class thread_pool<default_thread_pool_policy> {
public:
    // Starts std::thread::hardware_concurrency() workers (none where it reports 0). If one
    // fails to start, those already started are stopped and joined and the error propagates.
    thread_pool();
    ~thread_pool();
    thread_pool(const thread_pool&) = delete;
    thread_pool& operator=(const thread_pool&) = delete;

    // Queues a task; callable from any thread, tasks included.
    void submit(std::function<void()> task);
    // The worker loop.
    void operator()();

    std::size_t workerCount() const { return threads.size(); }
    // True once destruction has begun; tasks may poll it to end early.
    bool stopping() const { return done.load(); }

private:
    std::atomic<bool> done;
    std::mutex queueMutex;
    std::deque<std::function<void()>> tasks;
    std::condition_variable condition;
    std::vector<thread> threads;
    ThreadPoolCleaner joiner;
};

} // namespace utl
