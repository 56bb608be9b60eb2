// A joinable thread that reports whatever escapes its body instead of ending the process,
// and refuses to be forgotten: destroying it while still joinable logs and terminates.
#pragma once

#include <functional>
#include <thread>
#include <utility>

namespace utl {

class thread {
public:
    thread() noexcept = default;
    // Starts running callable through run(). Throws std::system_error if no thread can start.
    template <class Callable, class = std::enable_if_t<!std::is_same_v<std::decay_t<Callable>, thread>>>
    explicit thread(Callable&& callable)
        : thread_(&thread::run, std::function<void()>(std::forward<Callable>(callable))) {}
    thread(thread&& other) noexcept = default;
    // Like std::thread: assigning over a joinable thread is a programming error (logged, terminates).
    thread& operator=(thread&& other) noexcept;
    thread(const thread&) = delete;
    thread& operator=(const thread&) = delete;
    // Logs "thread destroyed without joining or detaching" and terminates if still joinable.
    ~thread();

    // Calls body; a Boost, standard or any other exception escaping it is logged under
    // "utl/thread" and the thread ends normally. An empty body counts as a thrown
    // std::bad_function_call. Static, so that moving a running thread object is safe.
    static void run(std::function<void()> body);

    bool joinable() const noexcept { return thread_.joinable(); }
    void join() { thread_.join(); }
    void detach() { thread_.detach(); }
    std::thread::id get_id() const noexcept { return thread_.get_id(); }

private:
    [[noreturn]] static void abandoned();

    std::thread thread_;
};

} // namespace utl
