// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <thread>

namespace zelvo::app {

/// Waits for SIGINT, SIGTERM and SIGHUP on a thread of its own as long as it lives. The first one
/// is told to the callback (on that thread). A second one ends the process at once, and so does the
/// first where the process is still busy two seconds later, with one large picture for instance;
/// its temporary folders go before.
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
    void endAtOnce() const;

    std::function<void()> onStop;
    std::atomic<int> first = 0;
    std::atomic<bool> isEnding = false;
    std::thread waiter;
};

} // namespace zelvo::app
