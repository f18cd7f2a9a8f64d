// SPDX-License-Identifier: MIT
#pragma once

#include "app/Engine.h"
#include "app/StopSignals.h"
#include "export/MovieOptions.h"
#include "platform/foundation/Result.h"

#include <functional>

namespace zelvo::app {

/// The run loop of a command, and the signals that stop what runs on it.
class StoppableLoop {
public:
    StoppableLoop();

    foundation::VirtualRunLoop runLoop;

    /// Called on the run loop when the process is asked to stop; empty: nothing is.
    std::function<void()> onStop;

    /// The signal that asked; 0 if none did.
    [[nodiscard]] int stopSignal() const { return signals.received(); }

private:
    StopSignals signals;
};

struct ExportReport {
    movie::MovieOutcome outcome;
    movie::MovieTimings timings;
    double seconds = 0; ///< real time from the start to the finished movie
};

/// Replays what the engine's model has recorded and makes the movie of it, showing its progress on
/// stderr. Errors: those of MovieWriter; cancelled when a signal stopped it.
[[nodiscard]] foundation::Result<ExportReport>
exportMovie(Engine& engine, StoppableLoop& loop, const movie::MovieOptions& options);

/// How many frames a movie of that duration (seconds) holds.
[[nodiscard]] int framesIn(double duration);

/// The table of --timing.
[[nodiscard]] std::string timingTable(const ExportReport& report);

} // namespace zelvo::app
