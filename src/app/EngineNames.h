// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "app/PerformanceReader.h"

#include <string>
#include <vector>

namespace zelvo::app {

/// The names that the engine as built knows, for the reader of performance files.
[[nodiscard]] Names engineNames();

/// What `zelvo list` prints, a line each.
[[nodiscard]] std::vector<std::string> listed(Listing what);

/// Where a scene stands in SceneManager's list. Its name is one of engineNames().scenes.
[[nodiscard]] int sceneIndexOf(const std::string& name);

} // namespace zelvo::app
