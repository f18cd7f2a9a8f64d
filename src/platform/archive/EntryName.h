// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace zelvo::archive {

/// The path of an entry below the folder that it is unpacked into. Backslashes count as slashes, as
/// some programs write them.
///
/// Refused, so that nothing is written outside of that folder: absolute names, names with a drive,
/// "..", control characters. Also names with more than `maxDepth` parts. Errors: `malformed`,
/// `tooLarge`.
[[nodiscard]] foundation::Result<std::filesystem::path>
entryPath(std::string name, std::size_t maxDepth);

} // namespace zelvo::archive
