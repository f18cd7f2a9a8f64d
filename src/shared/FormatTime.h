// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zelvo::ui {

/// The one form of a time in the interface: minutes (below 60), seconds and hundredths,
/// "1:02.50", each cut to a whole number. Seconds, 0 or more.
[[nodiscard]] std::string formatTime(double seconds);

} // namespace zelvo::ui
