// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"

#include <string>
#include <vector>

namespace zelvo::app {

/// The lines that `zelvo list` prints.
[[nodiscard]] std::vector<std::string> listed(Listing what);

} // namespace zelvo::app
