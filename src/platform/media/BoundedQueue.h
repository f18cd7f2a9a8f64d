// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace zelvo::media {

/// A queue between one producer thread and one consumer thread, for at most `capacity` items. The
/// producer must check or wait for room before it pushes.
template <class Item> class BoundedQueue {
public:
    explicit BoundedQueue(std::size_t itemLimit)
        : capacity(itemLimit) {}

    /// Also true when the queue has ended, so that nobody waits for it.
    [[nodiscard]] bool hasRoom() const {
        const std::lock_guard lock(mutex);
        return hasRoomLocked();
    }

    void waitForRoom() const {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return hasRoomLocked(); });
    }

    /// Drops the item if the queue has ended.
    void push(Item item) {
        {
            const std::lock_guard lock(mutex);
            if (isClosed)
                return;
            items.push_back(std::move(item));
        }
        changed.notify_all();
    }

    /// Waits for the next item; nothing when the queue is closed and empty.
    [[nodiscard]] std::optional<Item> pop() {
        std::optional<Item> item;
        {
            std::unique_lock lock(mutex);
            changed.wait(lock, [this] { return isClosed || !items.empty(); });
            if (items.empty())
                return std::nullopt;
            item = std::move(items.front());
            items.pop_front();
        }
        changed.notify_all();
        return item;
    }

    /// No more items will come; queued ones can still be taken.
    void close() {
        {
            const std::lock_guard lock(mutex);
            isClosed = true;
        }
        changed.notify_all();
    }

    /// No more items will come, and queued ones are dropped.
    void abandon() {
        std::deque<Item> dropped;
        {
            const std::lock_guard lock(mutex);
            isClosed = true;
            dropped.swap(items);
        }
        changed.notify_all();
    }

private:
    [[nodiscard]] bool hasRoomLocked() const { return isClosed || items.size() < capacity; }

    const std::size_t capacity;
    mutable std::mutex mutex; // guards items and isClosed
    mutable std::condition_variable changed;
    std::deque<Item> items;
    bool isClosed = false;
};

} // namespace zelvo::media
