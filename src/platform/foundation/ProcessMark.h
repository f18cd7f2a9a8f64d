// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zelvo::foundation {

/// Names this process in a file that outlives it: its number and the time of its start, because
/// numbers are used again.
[[nodiscard]] std::string processMark();

/// Whether the process of the mark still runs. False for any other text.
[[nodiscard]] bool isRunning(const std::string& mark);

} // namespace zelvo::foundation
