// Listeners that any number of watchers add and remove, each by the number it was given.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace osal::detail {

template <class Event> class Listeners {
public:
    int add(std::function<void(const Event&)> listener) {
        std::lock_guard<std::mutex> lock(mutex_);
        auto list = list_ ? std::make_shared<List>(*list_) : std::make_shared<List>();
        const int id = next_++;
        list->emplace_back(id, std::move(listener));
        list_ = std::move(list);
        return id;
    }

    void remove(int id) {
        std::lock_guard<std::mutex> lock(mutex_);
        if (!list_)
            return;
        auto list = std::make_shared<List>(*list_);
        list->erase(std::remove_if(list->begin(), list->end(), [id](const auto& l) { return l.first == id; }),
                    list->end());
        list_ = list->empty() ? nullptr : std::move(list);
    }

    bool empty() const {
        std::lock_guard<std::mutex> lock(mutex_);
        return !list_;
    }

    // Calls each outside the lock, so that a listener may add or remove one: the list is replaced
    // whole, never changed in place, and a call under way keeps the list it began with.
    void notify(const Event& event) const {
        std::shared_ptr<const List> list;
        {
            std::lock_guard<std::mutex> lock(mutex_);
            list = list_;
        }
        if (list)
            for (const auto& listener : *list)
                listener.second(event);
    }

private:
    using List = std::vector<std::pair<int, std::function<void(const Event&)>>>;
    mutable std::mutex mutex_;
    std::shared_ptr<const List> list_;
    int next_ = 1;
};

} // namespace osal::detail
