// SPDX-License-Identifier: MIT
#include "app/Stopwatch.h"

#include <chrono>

namespace zelvo::app {

double stopwatchSeconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

} // namespace zelvo::app
