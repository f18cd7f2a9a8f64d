// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/UserDefaults.h"

#include <string>

namespace zelvo::ui {

/// Whether a hint with a limited number of showings should be shown again. The count is kept in the
/// user defaults under `key`.
[[nodiscard]] bool
hintNeeded(foundation::UserDefaults& defaults, const std::string& key, int limit);

} // namespace zelvo::ui
