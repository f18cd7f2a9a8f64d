// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zelvo::foundation {

/// One plain diagnostic line on stderr. No levels: what is worth saying is said once. Safe from
/// every thread.
void logLine(std::string_view line);

} // namespace zelvo::foundation
