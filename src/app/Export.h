// SPDX-License-Identifier: MIT
#pragma once

#include "app/Engine.h"
#include "app/StopSignals.h"
#include "export/MovieOptions.h"
#include "platform/foundation/Result.h"

#include <functional>
#include <memory>
#include <mutex>

namespace zelvo::app {

/// The run loop of a command, and the signals (Ctrl+C, for example) that stop the command.
class StoppableLoop {
public:
    StoppableLoop();

    [[nodiscard]] foundation::VirtualRunLoop& runLoop() { return *current; }

    /// A new run loop, with time 0, for another export. Nothing may use the former one any more.
    void renew();

    /// Called on the run loop when a signal asks the process to stop; may be empty.
    std::function<void()> onStop;

    /// The signal that asked to stop; 0 if none came.
    [[nodiscard]] int stopSignal() const { return signals.received(); }

private:
    std::mutex mutex; ///< guards `current`, which the thread of the signals uses, too
    std::unique_ptr<foundation::VirtualRunLoop> current;
    StopSignals signals;
};

struct ExportReport {
    movie::MovieOutcome outcome;
    movie::MovieTimings timings;
    double seconds = 0; ///< real time from the start to the finished movie
};

/// Makes the movie of the performance in the engine's model, and shows the progress on stderr.
/// Errors: those of MovieWriter; cancelled if a signal stopped it.
[[nodiscard]] foundation::Result<ExportReport>
exportMovie(Engine& engine, StoppableLoop& loop, const movie::MovieOptions& options);

/// The table that --timing prints.
[[nodiscard]] std::string timingTable(const ExportReport& report);

} // namespace zelvo::app
