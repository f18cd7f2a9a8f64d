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

/// Calls sorted by due time; calls that are due together keep the order in which they were made.
/// Used by both run loops. Owned by the loop's thread.
class CallQueue {
public:
    using Key = std::pair<double, std::uint64_t>; ///< due time, order of making

    struct Entry {
        std::function<void()> call;
        double interval = 0; ///< seconds; 0 = called once
        std::shared_ptr<bool> isCancelled;
    };

    void add(double due, Entry entry) { entries.emplace(Key{due, ++made}, std::move(entry)); }

    /// When the next call is due; nothing if there is none. Drops cancelled calls.
    [[nodiscard]] std::optional<double> nextDue() {
        while (!entries.empty() && isCancelled(entries.begin()->second)) {
            entries.erase(entries.begin());
        }
        if (entries.empty())
            return {};
        return entries.begin()->first.first;
    }

    /// Runs the next call. A repeating one is put back with its next due time after the call;
    /// missed times are skipped.
    void runNext(double now) {
        auto node = entries.extract(entries.begin());
        Entry entry = std::move(node.mapped());
        entry.call();
        if (entry.interval <= 0 || isCancelled(entry))
            return;
        // Computed from the old due time, so that one late call does not delay all later ones.
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
