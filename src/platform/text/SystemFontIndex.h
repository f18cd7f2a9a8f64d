// SPDX-License-Identifier: MIT
#pragma once

#include "platform/text/SystemFonts.h"

namespace zelvo::text {

/// What `systemFonts` tells, read once for the process. The first of these calls starts a thread for
/// it, which ends with the reading or with the process: where the desktop's list has to be made
/// anew, nobody should have to wait for it, not even at the end. Any thread.

/// Null while it is being read.
[[nodiscard]] const std::vector<SystemFont>* systemFontsIfRead();

/// Waits until it is read.
[[nodiscard]] const std::vector<SystemFont>& awaitedSystemFonts();

} // namespace zelvo::text
