// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/object/ObjectScene.h"
#include "platform/usd/Limits.h"

#include <cstdint>
#include <span>

namespace zelvo::usd {

/// Reads a USDZ package, or a single USD layer in text or binary form, as it looks at rest: what is
/// animated or has bones comes in its first pose. Never looks outside of the file: what a single
/// layer refers to is missing. Errors: `malformed`, `unsupported`, `tooLarge`, `cancelled`.
[[nodiscard]] foundation::Result<object::ObjectScene> readUSD(
    std::span<const std::uint8_t> bytes,
    const object::Watch& watch = {},
    const Limits& limits = {});

} // namespace zelvo::usd
