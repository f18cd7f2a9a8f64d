// SPDX-License-Identifier: MIT
#pragma once

#include "document/PerformanceReader.h"

#include <string>
#include <vector>

namespace zelvo::document {

/// All names that a performance file can use.
[[nodiscard]] Names engineNames();

/// The index of a scene in SceneManager's list. The name must be in engineNames().scenes.
[[nodiscard]] int sceneIndexOf(const std::string& name);

} // namespace zelvo::document
