// SPDX-License-Identifier: MIT
#include "shared/FormatTime.h"

#include <fmt/format.h>

#include <cmath>

namespace zelvo::ui {

std::string formatTime(double seconds) {
    const auto part = [](double value, double wrap) {
        return static_cast<int>(std::fmod(value, wrap));
    };
    return fmt::format(
        "{}:{:02}.{:02}", part(seconds / 60, 60), part(seconds, 60), part(seconds * 100, 100));
}

} // namespace zelvo::ui
