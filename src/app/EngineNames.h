// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "app/PerformanceReader.h"

#include <string>
#include <vector>

namespace zelvo::app {

/// All names that a performance file can use.
[[nodiscard]] Names engineNames();

/// The lines that `zelvo list` prints.
[[nodiscard]] std::vector<std::string> listed(Listing what);

/// The index of a scene in SceneManager's list. The name must be in engineNames().scenes.
[[nodiscard]] int sceneIndexOf(const std::string& name);

} // namespace zelvo::app
