// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <thread>

namespace zelvo::app {

/// Waits for SIGINT, SIGTERM and SIGHUP on its own thread. The first signal calls the callback on
/// that thread. The process ends at once if a second signal comes, or if it is still busy two
/// seconds after the first one (with a large picture, for example). Then its temporary folders are
/// deleted first.
///
/// Make it before any other thread, because a new thread inherits the list of blocked signals.
class StopSignals {
public:
    explicit StopSignals(std::function<void()> callback);
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    /// The first signal that came; 0 if none.
    [[nodiscard]] int received() const { return first; }

private:
    void wait();
    void endAtOnce() const;

    std::function<void()> onStop;
    std::atomic<int> first = 0;
    std::atomic<bool> isEnding = false;
    std::thread waiter;
};

} // namespace zelvo::app
