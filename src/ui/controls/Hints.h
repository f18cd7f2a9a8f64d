// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/UserDefaults.h"

#include <string>

namespace zelvo::ui {

/// Whether a hint that is to be shown a limited number of times shall show once more. Counts in the
/// user defaults under `key`, across launches.
[[nodiscard]] bool
hintNeeded(foundation::UserDefaults& defaults, const std::string& key, int limit);

} // namespace zelvo::ui
