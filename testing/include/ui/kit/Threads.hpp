// For what happens on other threads: the library's rendering, keypad and indicator threads, and
// an application's own. Waits for a condition another thread will make true, and counts the
// process's threads, so that a test can prove that a teardown leaves none behind:
//
//   const int before = ui::kit::settledThreadCount();
//   { ui::kit::Terminal terminal; ... }
//   EXPECT_TRUE(ui::kit::eventually([&] { return ui::kit::threadCount() == before; }));
#pragma once

#include <dirent.h>

#include <chrono>
#include <functional>
#include <thread>

namespace ui::kit {

// Polls condition every millisecond until it holds (true) or timeout has passed (false).
inline bool eventually(const std::function<bool()>& condition,
                       std::chrono::milliseconds timeout = std::chrono::seconds(10)) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (std::chrono::steady_clock::now() < deadline) {
        if (condition())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return condition();
}

// The threads of this process (Linux). A thread just joined may linger here for a moment:
// compare through eventually().
inline int threadCount() {
    int n = 0;
    if (DIR* dir = opendir("/proc/self/task")) {
        while (dirent* entry = readdir(dir))
            n += entry->d_name[0] != '.';
        closedir(dir);
    }
    return n;
}

// The thread count to compare with later: a thread joined before the call may still be listed,
// for long on a loaded machine or under an emulator. Waits until the count holds still for
// 100 ms (five seconds at the most).
inline int settledThreadCount() {
    int count = threadCount(), same = 0;
    for (int i = 0; i < 500 && same < 10; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        const int now = threadCount();
        same = now == count ? same + 1 : 0;
        count = now;
    }
    return count;
}

} // namespace ui::kit
