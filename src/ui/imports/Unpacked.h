// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/foundation/TemporaryFolder.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::ui {

/// An archive, unpacked into a folder that goes away with this object.
struct Unpacked {
    foundation::TemporaryFolder folder;
    std::vector<std::filesystem::path> files; ///< in the order of their paths, without hidden ones
    std::string failure;                      ///< why not all of it is there; empty: all is
};

/// Unpacks as much of the archive as can be. Errors: of the temporary folder alone.
[[nodiscard]] foundation::Result<Unpacked>
unpack(const std::filesystem::path& file, const std::filesystem::path& temporary);

} // namespace zelvo::ui
