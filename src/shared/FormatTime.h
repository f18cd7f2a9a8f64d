// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zelvo::ui {

/// The format of times in the interface: "1:02.50", that is minutes (below 60), seconds and
/// hundredths, each rounded down. `seconds` must not be negative.
[[nodiscard]] std::string formatTime(double seconds);

} // namespace zelvo::ui
