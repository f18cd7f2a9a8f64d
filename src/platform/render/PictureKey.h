// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Hash.h"
#include "platform/render/ItemPainter.h"
#include "platform/render/Snapshot.h"
#include "platform/scene/SCNScene.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace zelvo::render {

/// Tells before a frame is drawn whether it would be another picture than the one before.
class PictureKey {
public:
    /// Equal keys, one after the other, are equal pictures, whatever their size. Empty: the picture
    /// is never the same, as with particles or with a modifier, which may look at the time.
    [[nodiscard]] std::optional<std::uint64_t>
    of(const scene::SCNScene& scene,
       const scene::SCNNode* pointOfView,
       float aspect,
       ItemPainter& painter);

private:
    void addCamera(Hash& hash) const;
    void addSurroundings(Hash& hash, const scene::SCNScene& scene);
    void addShadows(Hash& hash, std::span<const ShadowView> views) const;
    [[nodiscard]] bool addItems(
        Hash& hash,
        std::span<const DrawItem> items,
        ItemPainter& painter,
        const ItemPainter::Frame& frame);

    Snapshot snapshot;
    // The key tells pictures by their addresses: held, so that none comes back for another.
    std::vector<std::shared_ptr<const void>> owners;
    std::vector<std::shared_ptr<const void>> lastOwners;
    scene::SCNMaterialProperty::Contents background;
    std::uint64_t backgrounds = 0; ///< how many there have been
};

} // namespace zelvo::render
