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

/// Tells, without drawing, whether the next frame would look like the last one.
class PictureKey {
public:
    /// A hash of all that the picture depends on: if it equals the last one, so does the picture
    /// (at the same size). Nothing if the picture depends on time: particles, or a shader modifier.
    [[nodiscard]] std::optional<std::uint64_t>
    of(const scene::SCNScene& scene,
       const scene::SCNNode* pointOfView,
       float aspect,
       ItemPainter& painter);

private:
    void addCamera(Hash& hash) const;
    void addSurroundings(Hash& hash, const scene::SCNScene& scene);
    /// False if what the floor shows depends on time.
    [[nodiscard]] bool addFloor(Hash& hash, const scene::SCNScene& scene, ItemPainter& painter);
    void addShadows(Hash& hash, std::span<const ShadowView> views) const;
    [[nodiscard]] bool addItems(
        Hash& hash,
        std::span<const DrawItem> items,
        ItemPainter& painter,
        const ItemPainter::Frame& frame);

    Snapshot snapshot;
    Snapshot mirrored; ///< what the floor mirrors; it may be out of view itself
    // The key uses addresses. The objects are held, so that no new one can get such an address.
    std::vector<std::shared_ptr<const void>> owners;
    std::vector<std::shared_ptr<const void>> lastOwners;
    scene::SCNMaterialProperty::Contents background;
    std::uint64_t backgrounds = 0; ///< how often it has changed
};

} // namespace zelvo::render
