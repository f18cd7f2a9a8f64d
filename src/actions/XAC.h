// SPDX-License-Identifier: MIT
#pragma once

#include "actions/HandMove.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace zelvo::actions {

/// A recorded action: a callback and the time when it was performed. The callback captures all it
/// needs at that moment: values and permanent nodes, never nodes that are rebuilt, such as letters.
struct XAC {
    double time = 0;    ///< seconds of the model's clock, including the count-in
    double snapped = 0; ///< how far the time was moved to a beat, in seconds
    /// Can be called again: at the press and once in each later run.
    std::function<void()> xacFunc;
    int identifier = 0;        ///< shared by all records of one user action
    std::string title;         ///< shown in the history and in undo messages; may be empty
    bool registerUndo = false; ///< whether this record represents its group in undo and history
    bool hasRun = false;       ///< in the current run
    HandMovePtr origin;        ///< what made it; null: nothing that can be saved
    std::uint32_t seed = 0;    ///< of the random numbers that the callback draws in a movie
};

/// Shared, because it moves between the performance and the undo stacks.
using XACPtr = std::shared_ptr<XAC>;

} // namespace zelvo::actions
