// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::app {

/// Real time in seconds; it never goes back, and its zero has no meaning. Only for progress and
/// timing: pictures and recordings must not depend on it.
[[nodiscard]] double stopwatchSeconds();

} // namespace zelvo::app
