// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::app {

/// Real seconds, monotonic, from any start. Only for showing progress and timing; nothing that is
/// drawn or recorded depends on it.
[[nodiscard]] double stopwatchSeconds();

} // namespace zelvo::app
