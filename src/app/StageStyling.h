// SPDX-License-Identifier: MIT
#pragma once

#include "app/Performance.h"
#include "core/stage/Nodes.h"

#include <string_view>

namespace zelvo::app {

/// Gives the stage's texts the styles of the performance. What a style leaves out stays as it is.
void styleTexts(const Performance& performance, core::Nodes& stage);

/// The content node of that short name; a name without one is a programming error.
[[nodiscard]] core::NodePtr nodeNamed(std::string_view shortName, const core::Nodes& stage);

} // namespace zelvo::app
