// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace zelvo::ui {

/// The files beside a 3D file that it names, and that exist: the material libraries of a Wavefront
/// file with their pictures, the buffers and pictures of a glTF file. Without them the copy of a
/// file has no materials. Only what is in the file's own folder or below it.
///
/// Libraries are looked for at the beginning of the file only, where programs write them.
[[nodiscard]] std::vector<std::filesystem::path> companionsOf(const std::filesystem::path& file);

/// Limits of that.
struct CompanionLimits {
    static constexpr std::uint64_t kObjectBytes = 1U << 20U; ///< read from a Wavefront file
    static constexpr std::uint64_t kTextBytes = 64U << 20U;  ///< of a library or a glTF file
    static constexpr std::size_t kFiles = 1000;
};

} // namespace zelvo::ui
