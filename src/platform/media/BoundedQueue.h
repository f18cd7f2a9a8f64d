// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace zelvo::media {

/// Hands items from one producing to one consuming thread, at most `capacity` of them under way.
/// The producer asks or waits for room before it pushes.
template <class Item> class BoundedQueue {
public:
    explicit BoundedQueue(std::size_t itemLimit)
        : capacity(itemLimit) {}

    /// True also when nothing is taken any more: nobody is to wait for a queue that has ended.
    [[nodiscard]] bool hasRoom() const {
        const std::lock_guard lock(mutex);
        return hasRoomLocked();
    }

    void waitForRoom() const {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return hasRoomLocked(); });
    }

    /// Dropped without a word once the queue has ended.
    void push(Item item) {
        {
            const std::lock_guard lock(mutex);
            if (isClosed)
                return;
            items.push_back(std::move(item));
        }
        changed.notify_all();
    }

    /// The next item, waiting for it; none when the queue is closed and all has been taken.
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

    /// Nothing more comes; what is under way will still be taken.
    void close() {
        {
            const std::lock_guard lock(mutex);
            isClosed = true;
        }
        changed.notify_all();
    }

    /// Nothing more comes, and what is under way is dropped.
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
