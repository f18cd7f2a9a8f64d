// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zelvo::usd {

struct CrateVersion {
    std::uint8_t major = 0, minor = 0, patch = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): it takes the 0 of comparisons for a pointer
    auto operator<=>(const CrateVersion&) const = default;
};

struct CrateField {
    std::uint32_t name = 0;  ///< index into the tokens
    std::uint64_t value = 0; ///< see CrateValues
};

/// A path is its parent's and one element more.
struct CratePath {
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    std::uint32_t parent = kNone; ///< index into the paths; kNone for the root and the empty path
    std::uint32_t element = 0;    ///< index into the tokens
    bool isProperty = false;
    bool isFilled = false; ///< the empty path is not
};

enum class CrateSpecType : std::uint32_t {
    attribute = 1,
    prim = 6,
    pseudoRoot = 7,
    relationship = 8,
    variant = 10,
    variantSet = 11,
};

/// Says something about the thing at a path.
struct CrateSpec {
    std::uint32_t path = 0;
    std::uint32_t fieldSet = 0; ///< where its run begins in the field sets
    CrateSpecType type{};
};

/// The tables of a binary layer ("crate"), unpacked and checked: every index in `strings`, `fields`,
/// `paths` and `specs` is inside the table that it points into.
struct CrateTables {
    static constexpr std::uint32_t kEndOfFieldSet = 0xFFFFFFFF;

    CrateVersion version;
    std::vector<std::string> tokens;
    std::vector<std::uint32_t> strings;
    std::vector<CrateField> fields;
    std::vector<std::uint32_t> fieldSets; ///< runs of indices of fields, each with an end mark
    std::vector<CratePath> paths;
    std::vector<CrateSpec> specs;

    /// Nothing if the index is out of range.
    [[nodiscard]] std::optional<std::string> token(std::uint64_t index) const;
    [[nodiscard]] std::optional<std::string> string(std::uint64_t index) const;
    /// Empty for the empty path.
    [[nodiscard]] std::optional<std::string> path(std::uint64_t index) const;
};

[[nodiscard]] bool isCrate(std::span<const std::uint8_t> bytes);

/// Errors: `malformed`, `unsupported`, `tooLarge`.
[[nodiscard]] foundation::Result<CrateTables> readCrateTables(std::span<const std::uint8_t> bytes);

} // namespace zelvo::usd
