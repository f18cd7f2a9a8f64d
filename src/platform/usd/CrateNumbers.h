// SPDX-License-Identifier: MIT
#pragma once

#include "platform/usd/ByteReader.h"
#include "platform/usd/CrateTables.h"
#include "platform/usd/Limits.h"
#include "platform/usd/Value.h"

#include <cstdint>
#include <optional>

namespace zelvo::usd {

/// How the numbers of a type are stored.
enum class NumberForm { byte, int32, uint32, int64, uint64, half, float32, float64 };

struct NumberType {
    NumberForm form;
    std::size_t width;     ///< numbers in one value
    bool isMatrix = false; ///< width is a square
};

/// Nothing if values of this type are no numbers.
[[nodiscard]] std::optional<NumberType> numberTypeOf(unsigned type);

/// A value that stands in the low 32 bits of a stored one.
[[nodiscard]] Numbers inlinedNumbers(NumberType type, std::uint32_t bits);
/// A value at the reader's place. Empty if it is damaged.
[[nodiscard]] Numbers readNumbers(NumberType type, ByteReader& reader);

/// How an array is stored.
struct ArrayForm {
    CrateVersion version;
    bool isPacked = false;
};

/// The number of elements of an array at the reader's place, which is moved behind it.
[[nodiscard]] std::uint64_t readArrayLength(ByteReader& reader, CrateVersion version);
/// An IntArray or a FloatArray; std::monostate if it is damaged or beyond the budget.
[[nodiscard]] Value
readNumberArray(NumberType type, ByteReader& reader, ArrayForm form, Budget& budget);

} // namespace zelvo::usd
