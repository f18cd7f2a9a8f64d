// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zelvo::foundation {

/// Writes one diagnostic line to stderr. There are no log levels. Any thread.
void logLine(std::string_view line);

} // namespace zelvo::foundation
