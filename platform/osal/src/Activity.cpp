// What the stand-in sees of the threads that use the platform's events and delays: whether each
// is at work on something it was asked to do, pausing inside a timed sequence, or waiting for
// someone. Tests wait on these facts instead of on a quiet period (osal::host::waitUntilSettled).
#include "Internal.hpp"
#include "osal/event.hpp"
#include "osal/host.hpp"

#include <condition_variable>
#include <map>
#include <mutex>
#include <sstream>
#include <thread>
#include <unordered_map>

namespace {

struct EventState {
    bool everNotified = false; // an event nobody signals is a pause, not a wait for someone
    bool pending = false;      // set, and no waiter has taken it yet
    bool request = false;      // set by a thread that was not itself at work on a request
};

enum class Doing { Running, Waiting, Pausing, Sleeping };

struct ThreadState {
    int number = 0;
    Doing doing = Doing::Running;
    // Woken by a request and not yet back in a wait for someone: at work on it.
    bool busy = false;
    std::chrono::milliseconds limit{0};
    std::string last; // what it did last, for a report
};

struct Activity {
    std::mutex mutex;
    std::condition_variable changed;
    std::unordered_map<const void*, EventState> events;
    std::map<std::thread::id, ThreadState> threads;
    int nextThread = 1;
};

Activity& activity() {
    static Activity& a = *new Activity; // never destroyed: threads may end after main
    return a;
}

// A thread that ends is forgotten, whatever it was doing.
struct ThreadEnd {
    ~ThreadEnd() {
        auto& a = activity();
        {
            std::lock_guard<std::mutex> lock(a.mutex);
            a.threads.erase(std::this_thread::get_id());
        }
        a.changed.notify_all();
    }
};
thread_local ThreadEnd threadEnd;

// The calling thread's state; the activity's mutex held.
ThreadState& self(Activity& a) {
    (void)&threadEnd; // constructed, so that its destructor runs when the thread ends
    auto [it, added] = a.threads.try_emplace(std::this_thread::get_id());
    if (added)
        it->second.number = a.nextThread++;
    return it->second;
}

bool settled(const Activity& a, std::thread::id except) {
    for (const auto& [id, thread] : a.threads)
        if (id != except &&
            (thread.busy || thread.doing == Doing::Pausing || thread.doing == Doing::Sleeping))
            return false;
    for (const auto& [event, state] : a.events)
        if (state.pending && state.request)
            return false;
    return true;
}

template <class Change> void change(Change what) {
    auto& a = activity();
    {
        std::lock_guard<std::mutex> lock(a.mutex);
        what(a, self(a));
    }
    a.changed.notify_all();
}

} // namespace

namespace osal::detail {

void eventNotified(const void* event) {
    change([event](Activity& a, ThreadState& thread) {
        EventState& e = a.events[event];
        e.everNotified = true;
        e.pending = true;
        e.request = !thread.busy;
    });
}

bool eventWaitBegins(const void* event, bool set, bool timed, std::chrono::milliseconds limit) {
    bool atOnce = false;
    change([&](Activity& a, ThreadState& thread) {
        const bool pause = timed && !a.events[event].everNotified;
        if (pause && !set && passTimeAtOnce(limit)) {
            atOnce = true;
            thread.last = "paused " + std::to_string(limit.count()) + " ms at once";
            return;
        }
        thread.doing = pause ? Doing::Pausing : Doing::Waiting;
        thread.limit = limit;
        if (!pause)
            thread.busy = false;
    });
    return atOnce;
}

void eventWaitEnds(const void* event, bool set) {
    change([&](Activity& a, ThreadState& thread) {
        const Doing was = thread.doing;
        thread.doing = Doing::Running;
        if (!set) {
            thread.last = (was == Doing::Pausing ? "paused " : "waited ") +
                          std::to_string(thread.limit.count()) + " ms";
            return;
        }
        EventState& e = a.events[event];
        e.pending = false;
        if (e.request)
            thread.busy = true;
        e.request = false;
        thread.last = "woken by a signal";
    });
}

void eventDestroyed(const void* event) {
    auto& a = activity();
    {
        std::lock_guard<std::mutex> lock(a.mutex);
        a.events.erase(event);
    }
    a.changed.notify_all();
}

void sleepBegins(unsigned milliseconds) {
    change([milliseconds](Activity&, ThreadState& thread) {
        thread.doing = Doing::Sleeping;
        thread.limit = std::chrono::milliseconds(milliseconds);
    });
}

void sleepEnds() {
    change([](Activity&, ThreadState& thread) {
        thread.doing = Doing::Running;
        thread.last = "slept " + std::to_string(thread.limit.count()) + " ms";
    });
}

void noteDone(const std::string& what) {
    change([&what](Activity&, ThreadState& thread) { thread.last = what; });
}

} // namespace osal::detail

namespace osal::host {

bool waitUntilSettled(std::chrono::milliseconds timeout) {
    auto& a = activity();
    const auto caller = std::this_thread::get_id();
    std::unique_lock<std::mutex> lock(a.mutex);
    // Waiting for the others is a wait for someone: whatever signal woke this thread last, it is
    // done with it. Otherwise a test's thread woken by a reply it asked for would stay "at work"
    // for the rest of the process, and a later wait from another thread would never settle.
    if (const auto it = a.threads.find(caller); it != a.threads.end())
        it->second.busy = false;
    return a.changed.wait_for(lock, timeout, [&] { return settled(a, caller); });
}

std::string unsettled() {
    auto& a = activity();
    const auto caller = std::this_thread::get_id();
    std::lock_guard<std::mutex> lock(a.mutex);
    std::ostringstream out;
    const auto next = [&out] { out << (out.tellp() > 0 ? "; " : ""); };
    for (const auto& [id, thread] : a.threads) {
        if (id == caller)
            continue;
        const std::string limit = std::to_string(thread.limit.count()) + " ms";
        std::string doing;
        if (thread.doing == Doing::Sleeping)
            doing = "sleeping " + limit;
        else if (thread.doing == Doing::Pausing)
            doing = "pausing " + limit + " (a timed wait nobody signals: a step of a sequence)";
        else if (thread.busy)
            doing = "still at work on a signal it was woken by";
        else
            continue;
        next();
        out << "thread " << thread.number << " " << doing;
        if (!thread.last.empty())
            out << ", last " << thread.last;
    }
    for (const auto& [event, state] : a.events)
        if (state.pending && state.request) {
            next();
            out << "an event signalled that no thread has taken yet";
        }
    return out.str();
}

} // namespace osal::host
