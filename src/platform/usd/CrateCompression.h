// SPDX-License-Identifier: MIT
#pragma once

#include "platform/usd/ByteReader.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace zelvo::usd {

/// Unpacks the chunks of LZ4 data that a crate holds. Nothing if they are damaged or give more
/// bytes than `bound`.
[[nodiscard]] std::optional<std::vector<std::uint8_t>>
unpackBlock(std::span<const std::uint8_t> packed, std::uint64_t bound);

/// Reads a byte count and that many bytes of packed integers, stored as differences. Nothing if
/// they are damaged or fewer than `count`.
[[nodiscard]] std::optional<std::vector<std::int32_t>>
readPackedInts(ByteReader& reader, std::uint64_t count);
[[nodiscard]] std::optional<std::vector<std::int64_t>>
readPackedLongs(ByteReader& reader, std::uint64_t count);

} // namespace zelvo::usd
