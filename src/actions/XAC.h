// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace zelvo::actions {

/// One recorded action: a callback with the time at which it was performed. There are no parameters
/// to interpret; what it means is its callback, which holds everything that it needs, captured at
/// the moment of the performance: values and permanent nodes, never what is rebuilt (letters).
struct XAC {
    double time = 0; ///< seconds of the model's clock, count-in included
    std::function<void()>
        xacFunc;               ///< repeatable: run at the performance and once in each later run
    int identifier = 0;        ///< shared by all records of one user act
    std::string title;         ///< what the history and the undo message show; may be empty
    bool registerUndo = false; ///< the one record that stands for its group in undo and history
    bool hasRun = false;       ///< already executed in the current run
};

/// Shared by the performance and the undo stacks, which hold it at different times of its life.
using XACPtr = std::shared_ptr<XAC>;

} // namespace zelvo::actions
