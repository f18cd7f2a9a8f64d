// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/render/Handles.h"

#include <string>
#include <string_view>
#include <vector>

namespace zelvo::render {

/// What a program is made of. Before both stages go the version, one `#define` a line of `defines`,
/// and the shared declarations; lines `#include "file"` are replaced by that file, `#include
/// "MODIFIER"` by `modifier`.
struct ProgramSource {
    std::string_view vertexFile;
    std::string_view fragmentFile;
    std::vector<std::string> defines{}; ///< "NAME" or "NAME value"
    std::string_view modifier{};
};

/// Error: malformed, with the compiler's words.
[[nodiscard]] foundation::Result<ProgramHandle> buildProgram(const ProgramSource& source);

} // namespace zelvo::render
