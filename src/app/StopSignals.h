// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <thread>

namespace zelvo::app {

/// Waits for SIGINT and SIGTERM on a thread of its own as long as it lives. The first one is told
/// to the callback (on that thread); a second one ends the process the hard way.
///
/// Must be made before any other thread, as threads inherit which signals they leave alone.
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

    std::function<void()> onStop;
    std::atomic<int> first = 0;
    std::atomic<bool> isEnding = false;
    std::thread waiter;
};

} // namespace zelvo::app
