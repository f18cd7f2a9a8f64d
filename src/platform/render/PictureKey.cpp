// SPDX-License-Identifier: MIT
#include "platform/render/PictureKey.h"

#include "platform/render/MirrorImage.h"
#include "platform/render/StillLayer.h"

#include <array>

namespace zelvo::render {

std::optional<std::uint64_t> PictureKey::of(
    const scene::SCNScene& scene,
    const scene::SCNNode* pointOfView,
    float aspect,
    ItemPainter& painter) {
    snapshot.take(scene, pointOfView, aspect);
    if (!snapshot.emitters().empty())
        return std::nullopt;
    owners.swap(lastOwners);
    owners.clear();
    Hash hash;
    addCamera(hash);
    addSurroundings(hash, scene);
    const ShadowViews views = shadowViews(snapshot);
    addShadows(hash, views.all());
    UniformArena unused(1); // nothing is drawn here
    const ItemPainter::Frame frame{snapshot, views.all(), unused};
    painter.begin();
    const bool isStill = addItems(hash, snapshot.opaque(), painter, frame) &&
                         addItems(hash, snapshot.translucent(), painter, frame) &&
                         addFloor(hash, scene, painter);
    return isStill ? std::optional(hash.result()) : std::nullopt;
}

void PictureKey::addCamera(Hash& hash) const {
    const CameraView& view = snapshot.camera();
    hash.addBlock(view.viewProjection);
    hash.addBlock(view.view);
    const scene::SCNCamera* const camera = snapshot.sceneCamera();
    if (camera == nullptr)
        return;
    hash.add(camera->wantsHDR ? 1 : 0);
    hash.add(camera->wantsDepthOfField ? 1 : 0);
    hash.addBlock(std::array{camera->exposureOffset, camera->focusDistance, camera->fStop});
}

void PictureKey::addSurroundings(Hash& hash, const scene::SCNScene& scene) {
    if (scene.background.contents != background) {
        background = scene.background.contents;
        ++backgrounds;
    }
    hash.add(backgrounds);
    const image::ImagePtr light = scene.lightingEnvironment.image();
    owners.push_back(light);
    hash.addAddress(light.get());
    hash.addBlock(scene.lightingEnvironment.intensity);
}

void PictureKey::addShadows(Hash& hash, std::span<const ShadowView> views) const {
    for (const ShadowView& view : views) {
        hash.addBlock(view);
    }
    // Nodes outside the view count, too: their shadows may be visible.
    for (const VisibleNode& node : snapshot.nodes()) {
        hash.addBlock(node.world);
        hash.add(node.geometry->revision());
        hash.add(node.castsShadow ? 1 : 0);
        hash.addBlock(node.opacity);
        hash.add(node.categoryBitMask);
    }
}

bool PictureKey::addFloor(Hash& hash, const scene::SCNScene& scene, ItemPainter& painter) {
    if (!snapshot.floor())
        return true;
    const Snapshot::Floor& floor = *snapshot.floor();
    const scene::SCNFloorLook& look = *floor.item.material->floor;
    hash.addBlock(look);
    hash.addBlock(std::array{floor.height, floor.opacity});
    mirrored.takeMirrored(scene, snapshot, floor.height + look.lift);
    UniformArena unused(1);
    const ItemPainter::Frame frame{mirrored, {}, unused};
    return addItems(hash, mirrored.opaque(), painter, frame) &&
           addItems(hash, mirrored.translucent(), painter, frame);
}

bool PictureKey::addItems(
    Hash& hash,
    std::span<const DrawItem> items,
    ItemPainter& painter,
    const ItemPainter::Frame& frame) {
    for (const DrawItem& item : items) {
        const std::uint64_t key =
            painter.key(frame, item, painter.lightsFor(frame, item, ItemPainter::Shadows::cast));
        if (key == StillLayer::kMoving)
            return false;
        hash.add(key);
        hash.add(static_cast<std::uint64_t>(item.material->blendMode));
        for (image::ImagePtr& picture : painter.pictures(item)) {
            owners.push_back(std::move(picture));
        }
    }
    return true;
}

} // namespace zelvo::render
