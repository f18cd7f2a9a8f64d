// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <string>

namespace zelvo::text {

/// Whether the bytes begin like a font packed for the web (WOFF or WOFF2).
[[nodiscard]] bool isWebFont(const std::string& bytes);

/// The font file that is packed in it. Errors: `malformed`, `tooLarge`.
[[nodiscard]] foundation::Result<std::string> unpackWebFont(const std::string& bytes);

} // namespace zelvo::text
