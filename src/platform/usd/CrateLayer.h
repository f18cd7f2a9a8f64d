// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/usd/Layer.h"
#include "platform/usd/Limits.h"

#include <cstdint>
#include <memory>
#include <span>

namespace zelvo::usd {

/// Reads a binary layer. The bytes must stay as long as the layer. Errors: as readCrateTables().
[[nodiscard]] foundation::Result<std::unique_ptr<Layer>>
readCrateLayer(std::span<const std::uint8_t> bytes, const std::shared_ptr<Budget>& budget);

} // namespace zelvo::usd
