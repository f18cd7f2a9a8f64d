// SPDX-License-Identifier: MIT
#pragma once

#include "app/Performance.h"
#include "platform/foundation/Result.h"
#include "stage/Nodes.h"

#include <filesystem>
#include <string_view>

namespace zelvo::app {

/// Gives the stage's content the styles of the performance, a picture being looked for below the
/// folder. What a style leaves out stays as it is. Fails for a picture that cannot be loaded; the
/// message begins with the line that names it.
[[nodiscard]] foundation::Result<void> styleContent(
    const Performance& performance, const std::filesystem::path& folder, stage::Nodes& stage);

/// The content node of that short name; a name without one is a programming error.
[[nodiscard]] node::NodePtr nodeNamed(std::string_view shortName, const stage::Nodes& stage);

} // namespace zelvo::app
