// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace zelvo::foundation {

/// Calls by their due time, those due together in the order of their making. The common part of
/// both run loops; owned by the loop's thread.
class CallQueue {
public:
    using Key = std::pair<double, std::uint64_t>; ///< due time, order of making

    struct Entry {
        std::function<void()> call;
        double interval = 0; ///< seconds; 0 for a call that comes once
        std::shared_ptr<bool> isCancelled;
    };

    void add(double due, Entry entry) { entries.emplace(Key{due, ++made}, std::move(entry)); }

    /// When the next live call is due; absent if there is none. Drops cancelled calls on its way.
    [[nodiscard]] std::optional<double> nextDue() {
        while (!entries.empty() && isCancelled(entries.begin()->second)) {
            entries.erase(entries.begin());
        }
        if (entries.empty())
            return {};
        return entries.begin()->first.first;
    }

    /// Takes the next call out, runs it, and puts a repeating one back to its next beat after the
    /// given time; beats that were missed are left out.
    void runNext(double now) {
        auto node = entries.extract(entries.begin());
        Entry entry = std::move(node.mapped());
        entry.call();
        if (entry.interval <= 0 || isCancelled(entry))
            return;
        // The next beat of its own measure: being late does not push all later beats back.
        double due = node.key().first + entry.interval;
        if (due <= now)
            due += entry.interval * std::ceil((now - due) / entry.interval);
        add(due, std::move(entry));
    }

private:
    static bool isCancelled(const Entry& entry) {
        return entry.isCancelled != nullptr && *entry.isCancelled;
    }

    std::map<Key, Entry> entries;
    std::uint64_t made = 0;
};

} // namespace zelvo::foundation
