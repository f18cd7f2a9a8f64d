// SPDX-License-Identifier: MIT
#pragma once

#include "platform/usd/CrateTables.h"
#include "platform/usd/Limits.h"
#include "platform/usd/Value.h"

#include <cstdint>
#include <memory>
#include <span>

namespace zelvo::usd {

/// Decodes the values of a binary layer. A stored value has 64 bits:
///
///     63 array | 62 inlined | 61 packed | 55-48 type | 47-0 the value itself, or its offset
///
/// A damaged value, or one beyond the budget, becomes std::monostate.
class CrateValues : public ValueStore {
public:
    /// Bytes and tables must stay.
    CrateValues(
        std::span<const std::uint8_t> data,
        const CrateTables& source,
        std::shared_ptr<Budget> budget_)
        : bytes(data)
        , tables(source)
        , budget(std::move(budget_)) {}

    [[nodiscard]] Value decode(std::uint64_t bits) const override;
    /// Whether it is not a value, but takes one away.
    [[nodiscard]] static bool isBlocked(std::uint64_t stored);
    /// Of the samples of an animated attribute, the first one that is not blocked, still stored.
    [[nodiscard]] std::optional<std::uint64_t> firstSample(std::uint64_t bits) const;

private:
    std::span<const std::uint8_t> bytes;
    const CrateTables& tables;
    std::shared_ptr<Budget> budget;
};

} // namespace zelvo::usd
