// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/usd/Archive.h"
#include "platform/usd/Layer.h"
#include "platform/usd/Limits.h"

#include <compare>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::usd {

/// A file in the package, or in a package inside it.
struct AssetId {
    std::size_t package = 0;
    std::size_t file = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): it takes the 0 of comparisons for a pointer
    auto operator<=>(const AssetId&) const = default;
};

/// The files of a scene: an archive with the archives inside it, or one lone layer. Reads each layer
/// once.
class Assets {
public:
    /// The bytes must stay. Errors: `malformed`, `unsupported`, `tooLarge`.
    [[nodiscard]] static foundation::Result<std::unique_ptr<Assets>>
    open(std::span<const std::uint8_t> bytes, const Limits& limits);

    /// The layer where the scene begins.
    [[nodiscard]] AssetId rootLayer() const { return root; }

    /// The file that a layer means by a path. A package means the layer where it begins;
    /// "a.usdz[b/c.usd]" a file in it. Nothing if there is none.
    [[nodiscard]] std::optional<AssetId> resolve(std::string_view path, AssetId layer);

    [[nodiscard]] foundation::Result<const Layer*> layer(AssetId id);
    [[nodiscard]] foundation::Result<std::vector<std::uint8_t>> bytes(AssetId id);
    [[nodiscard]] std::string name(AssetId id) const;

private:
    struct Package {
        std::vector<std::uint8_t> held;   ///< of a package inside another one
        std::unique_ptr<Archive> archive; ///< null for a lone layer
        std::size_t rootFile = 0;
        int depth = 0;
        std::map<std::size_t, std::optional<std::size_t>> inner; ///< packages, by their file
    };

    explicit Assets(const Limits& allowed);

    [[nodiscard]] foundation::Result<std::size_t>
    addPackage(std::span<const std::uint8_t> bytes, int depth);
    [[nodiscard]] std::optional<std::size_t> findFile(std::string_view path, AssetId layer) const;
    [[nodiscard]] std::optional<std::size_t> innerPackage(AssetId id);
    [[nodiscard]] foundation::Result<std::unique_ptr<Layer>> readLayer(AssetId id);

    Limits limits;
    Budget unpackedBytes;
    std::shared_ptr<Budget> valueBytes;
    std::vector<std::unique_ptr<Package>> packages;
    std::span<const std::uint8_t> lone;
    std::map<AssetId, std::vector<std::uint8_t>> layerBytes;
    std::map<AssetId, foundation::Result<std::unique_ptr<Layer>>> layers; ///< refer to their bytes
    AssetId root;
};

} // namespace zelvo::usd
