// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/render/Handles.h"

#include <string>
#include <string_view>
#include <vector>

namespace zelvo::render {

/// The source of a program. Each stage starts with the version, one `#define` for each of
/// `defines`, and the shared declarations. `#include "file"` inserts that file, `#include
/// "MODIFIER"` inserts `modifier`.
struct ProgramSource {
    std::string_view vertexFile;
    std::string_view fragmentFile;
    std::vector<std::string> defines{}; ///< "NAME" or "NAME value"
    std::string_view modifier{};
};

/// Error: `malformed`, with the compiler's message.
[[nodiscard]] foundation::Result<ProgramHandle> buildProgram(const ProgramSource& source);

} // namespace zelvo::render
