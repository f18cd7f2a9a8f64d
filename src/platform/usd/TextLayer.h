// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/usd/Layer.h"
#include "platform/usd/Limits.h"

#include <memory>
#include <string_view>

namespace zelvo::usd {

[[nodiscard]] bool isTextLayer(std::string_view text);

/// Reads a text layer. Error: `malformed`, with the line.
[[nodiscard]] foundation::Result<std::unique_ptr<Layer>>
readTextLayer(std::string_view text, const std::shared_ptr<Budget>& budget);

} // namespace zelvo::usd
