// SPDX-License-Identifier: MIT
#pragma once

#include "document/Performance.h"
#include "platform/foundation/Result.h"

#include <filesystem>
#include <functional>

namespace zelvo::ui {

/// Copies the files that a style names into `folder`, with what belongs to them (the textures of an
/// object), and names the copies in the style. Only files for which `isWanted` is true. A copy that is
/// there already is used again; a different file of that name gets a number. Errors: `unreadable`,
/// `unwritable`. A missing file keeps its name.
[[nodiscard]] foundation::Result<void> copyMedia(
    document::Style& style,
    const std::filesystem::path& folder,
    const std::function<bool(const std::filesystem::path&)>& isWanted);

} // namespace zelvo::ui
