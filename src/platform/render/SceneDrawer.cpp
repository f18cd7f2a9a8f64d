// SPDX-License-Identifier: MIT
#include "platform/render/SceneDrawer.h"

#include "platform/render/Effort.h"
#include "platform/render/Hash.h"
#include "platform/render/ShadowOnSide.h"
#include "platform/render/ShadowReach.h"
#include "platform/scene/MaterialOpacity.h"

#include <algorithm>
#include <cmath>

namespace zelvo::render {
namespace {

using Place = TranslucentOrder::Place;

Size shadeSize(Size drawn, Detail detail) {
    return drawn.scaled(effortOf(detail).shadeScale);
}

/// Whether two translucent items are drawn as one thing.
bool belongTogether(const DrawItem& a, const DrawItem& b) {
    return a.node == b.node || (a.fade != 0 && a.fade == b.fade);
}

/// Calls with the first item of each group that is drawn as one thing, and with the group's size.
template <typename Call> void forEachGroup(std::span<const DrawItem> items, const Call& call) {
    for (std::size_t first = 0, end = 0; first < items.size(); first = end) {
        while (end < items.size() && belongTogether(items[first], items[end]))
            ++end;
        call(first, end - first);
    }
}

} // namespace

SceneDrawer::SceneDrawer(const DeviceInfo& device)
    : textures(device, holes)
    , painter({state, meshes, textures, shaders, holes, shadows}) {
    state.forget();
}

SceneDrawer::Frame SceneDrawer::begin(
    const scene::SCNScene& scene,
    const Snapshot::Sight& sight,
    const Canvas& canvas,
    UniformArena& uniforms) {
    snapshot.take(scene, sight, canvas.target.size());
    views = shadowViews(snapshot, effortOf(canvas.detail).maxShadowMap);
    painter.begin();
    return {
        scene,
        canvas.target,
        canvas.detail,
        canvas.backdrop != nullptr ? *canvas.backdrop : scene.background,
        frameBlock(scene, canvas),
        {snapshot, views.all(), uniforms, frameFeatures(scene)}};
}

void SceneDrawer::end() {
    lines.prune();
    const bool hasDroppedTextures = textures.prune();
    if (meshes.prune() || hasDroppedTextures)
        state.forgetBindings();
}

void SceneDrawer::drawShadows(const Frame& frame) {
    shadows.draw({state, meshes, shaders, frame.items.uniforms, textures}, snapshot, views.all());
}

FloorPass::Tools SceneDrawer::floorTools() {
    return {state, painter, particles, textures, meshes, shaders};
}

FloorPass::Frame SceneDrawer::floorFrame(const Frame& frame) const {
    return {frame.scene, snapshot, frame.block, frame.items, frame.target, frame.detail};
}

void SceneDrawer::prepareFloor(const Frame& frame) {
    floor.prepare(floorTools(), floorFrame(frame));
}

void SceneDrawer::drawOnFloor(const Frame& frame) {
    if (catcher)
        floor.catchShadows(floorTools(), floorFrame(frame), catcher->shadowed);
    floor.drawOn(floorTools(), floorFrame(frame));
}

void SceneDrawer::planCatcher(const ItemPainter::Frame& frame, Size picture) {
    catcher.reset();
    const std::optional<Snapshot::Floor>& caught = snapshot.floor();
    if (!caught || !caught->isLeftOut || scene::constantOpacity(*caught->item.material) <= 0)
        return;
    const OpaqueItem plan = planned(frame, caught->item, picture);
    if (plan.isDarkened)
        catcher = plan;
}

void SceneDrawer::drawStill(const Frame& frame) {
    const Size size = frame.target.size();
    opaques.clear();
    keys.clear();
    for (const DrawItem& item : snapshot.opaque()) {
        opaques.push_back(planned(frame.items, item, size));
        keys.push_back(painter.key(frame.items, item, opaques.back().lights));
    }
    planCatcher(frame.items, size);
    planTranslucent(frame);
    for (const Veil& veil : veils)
        keys.push_back(veil.key);
    if (BackgroundPass::isPicture(frame.background))
        keys.push_back(background.key(frame.background));
    const StillLayer::Step step = layer.plan(keys, surroundingsKey(frame), size);
    if (step == StillLayer::Step::without) {
        isLayerBelow = false;
        drawBackground(frame, frame.target);
        return;
    }
    if (step == StillLayer::Step::build) {
        isLayerBelow = false;
        keepWhatTheLayerShows(frame.scene);
        drawBackground(frame, layer.resized(state, frame.target.samples()));
        for (std::size_t i = 0; i < opaques.size(); ++i) {
            if (layer.holds(keys[i]))
                drawWhole(frame.items, opaques[i]);
        }
        for (std::size_t i = 0; i < veils.size(); ++i) {
            if (layer.holds(veils[i].key))
                drawTranslucent(frame, snapshot.translucent().subspan(i, 1));
        }
    }
    copyLayer(frame);
    frame.items.uniforms.bind(state, kFrameBinding, frame.block);
}

void SceneDrawer::copyLayer(const Frame& frame) {
    // Elsewhere the layer is still there from the frame before.
    if (isLayerBelow)
        layer.copyTo(frame.target, state, touched.touched());
    else
        layer.copyTo(frame.target, state);
    isLayerBelow = true;
    noteTouched(frame);
}

void SceneDrawer::noteTouched(const Frame& frame) {
    const Size size = frame.target.size();
    const CameraView& camera = snapshot.camera();
    touched.reset(size);
    if (hasParticles())
        touched.add(PixelRect::whole(size));
    const auto addItem = [&](const DrawItem& item) {
        touched.add(boundsOnScreen(snapshot.nodes()[item.node], camera, size));
    };
    for (std::size_t i = 0; i < opaques.size(); ++i) {
        touched.add(opaques[i].shadowed);
        if (!layer.holds(keys[i]))
            addItem(*opaques[i].item);
    }
    const std::span<const DrawItem> items = snapshot.translucent();
    for (std::size_t i = 0; i < veils.size(); ++i) {
        if (!layer.holds(veils[i].key))
            addItem(items[i]);
    }
    if (catcher)
        touched.add(catcher->shadowed);
    if (hasFloor())
        touched.add(floor.seenPart(floorFrame(frame)));
}

bool SceneDrawer::hasShade() const {
    return catcher.has_value() || std::ranges::any_of(opaques, &OpaqueItem::isDarkened);
}

void SceneDrawer::drawShade(const Frame& frame) {
    const Size drawn = frame.target.size();
    shade.resize(shadeSize(drawn, frame.detail), state);
    shade.bind(state);
    state.clear();
    for (const OpaqueItem& opaque : opaques) {
        if (!opaque.isDarkened)
            continue;
        state.setScissor(opaque.shadowed.scaled(drawn, shade.size()));
        painter.drawShade(
            frame.items, *opaque.item, opaque.shadowLights, ItemPainter::Shade::colored);
    }
    if (catcher) {
        state.setScissor(catcher->shadowed.scaled(drawn, shade.size()));
        snapshot.forEachPart(*snapshot.floor(), [&](const DrawItem& item) {
            painter.drawShade(frame.items, item, catcher->shadowLights, ItemPainter::Shade::grey);
        });
    }
    state.setScissor(std::nullopt);
    state.bindTexture(kShadeUnit, shade.color(), textures.smoothSampler());
    frame.target.bind(state);
}

void SceneDrawer::drawMoving(const Frame& frame) {
    for (std::size_t i = 0; i < opaques.size(); ++i) {
        const OpaqueItem& opaque = opaques[i];
        const bool isHeld = layer.holds(keys[i]);
        // With shadows first: the second draw then skips those pixels.
        if (!opaque.isDarkened)
            drawShadowed(
                frame.items, opaque, isHeld ? DepthTest::nearerOrEqual : DepthTest::nearer);
        if (!isHeld)
            drawWhole(frame.items, opaque);
    }
    drawEarly(frame);
    for (const OpaqueItem& opaque : opaques) {
        if (opaque.isDarkened)
            drawShadowed(frame.items, opaque, DepthTest::nearerOrEqual);
    }
}

void SceneDrawer::drawEdgeLines(const Frame& frame) {
    edgedNodes.clear();
    const auto add = [&](const DrawItem& item) {
        if (item.material->fillMode != scene::SCNFillMode::lines)
            edgedNodes.push_back(item.node);
    };
    std::ranges::for_each(snapshot.opaque(), add);
    for (const DrawItem& item : snapshot.translucent()) {
        if (painter.fadesAsAWhole(
                *item.material)) // others have no depth, so hidden edges are not known
            add(item);
    }
    std::ranges::sort(edgedNodes);
    edgedNodes.erase(std::unique(edgedNodes.begin(), edgedNodes.end()), edgedNodes.end());
    lines.draw({state, frame.items.uniforms}, snapshot, edgedNodes, frame.target);
    frame.target.bind(state);
}

void SceneDrawer::drawParticles(const Frame& frame) {
    particles.draw(
        {state, textures},
        snapshot,
        {&frame.target, ParticleLight(frame.scene, snapshot.lights())});
}

bool SceneDrawer::hasSceneLight(const scene::SCNScene& scene) const {
    return probeOf(scene) != nullptr ||
           std::ranges::any_of(snapshot.lights(), [](const PlacedLight& placed) {
               return placed.light->type != scene::SCNLightType::ambient && placed.light->gain == 1;
           });
}

std::uint32_t SceneDrawer::frameFeatures(const scene::SCNScene& scene) {
    std::uint32_t features = 0;
    if (const std::shared_ptr<const image::LightProbe> probe = probeOf(scene)) {
        features |= kEnvironment;
        state.bindTexture(kProbeUnit, textures.probe(probe), textures.smoothSampler());
    }
    return features;
}

std::shared_ptr<const image::LightProbe> SceneDrawer::probeOf(const scene::SCNScene& scene) {
    const image::ImagePtr picture = scene.lightingEnvironment.image();
    return picture ? picture->lightProbe : nullptr;
}

FrameBlock SceneDrawer::frameBlock(const scene::SCNScene& scene, const Canvas& canvas) const {
    FrameBlock block;
    const CameraView& camera = snapshot.camera();
    block.viewProjection = camera.viewProjection;
    block.view = camera.view;
    block.cameraPosition = glm::vec4(camera.position, 1);
    const scene::SCNCamera* sceneCamera = snapshot.sceneCamera();
    const double stops = sceneCamera != nullptr ? sceneCamera->exposureOffset : 0;
    block.frame = {
        static_cast<float>(scene.time()),
        static_cast<float>(std::exp2(stops)),
        scene.lightingEnvironment.intensity,
        static_cast<float>(canvas.target.samples())};
    const Effort& effort = effortOf(canvas.detail);
    const Size drawn = canvas.target.size();
    const Size shadeImage = shadeSize(drawn, canvas.detail);
    block.effort = {
        effort.casterLookups,
        effort.edgeLookups,
        static_cast<float>(shadeImage.width) / static_cast<float>(drawn.width),
        static_cast<float>(shadeImage.height) / static_cast<float>(drawn.height)};
    if (const auto probe = probeOf(scene)) {
        for (std::size_t i = 0; i < block.irradiance.size(); ++i) {
            block.irradiance.at(i) = glm::vec4(probe->irradiance.at(i), 0);
        }
    }
    return block;
}

std::uint64_t SceneDrawer::surroundingsKey(const Frame& frame) {
    FrameBlock timeless = frame.block;
    timeless.frame.x = 0; // only shader modifiers use the time, and items with one are never kept
    Hash hash;
    hash.addBlock(timeless);
    hash.add(frame.items.features);
    hash.addAddress(probeOf(frame.scene).get());
    hash.add(background.key(frame.background));
    return hash.result();
}

LightBits SceneDrawer::unshaded(const ItemPainter::Frame& frame, const DrawItem& item) const {
    const VisibleNode& node = snapshot.nodes()[item.node];
    if (painter.showsBackFaces(frame, item))
        return 0;
    LightBits result = 0;
    for (const ShadowView& view : frame.views) {
        if (!isShaded(node, item.element, view, snapshot))
            result |= LightBits{1} << view.light;
    }
    return result;
}

ItemPainter::Lights SceneDrawer::lightsOf(const ItemPainter::Frame& frame, const DrawItem& item) {
    return painter.lightsFor(frame, item, ItemPainter::Shadows::cast, unshaded(frame, item));
}

SceneDrawer::OpaqueItem
SceneDrawer::planned(const ItemPainter::Frame& frame, const DrawItem& item, Size picture) {
    using Shadows = ItemPainter::Shadows;
    const VisibleNode& node = snapshot.nodes()[item.node];
    const ItemPainter::Lights all = lightsOf(frame, item);
    const LightSet& set = painter.lightSet(all);
    const int maps = set.counts.directionalShadows + set.counts.spotShadows;
    if (maps == 0 || item.material->lightingModelName == scene::SCNLightingModel::constant ||
        hidesItself(frame, item))
        return {&item, all, all, {}, false, hidesItself(frame, item)};

    PixelRect shadowed;
    bool isCaster = false;
    for (std::size_t i = 0; i < static_cast<std::size_t>(maps); ++i) {
        const ShadowView& view = frame.views[set.shadowViews.at(i)];
        isCaster = isCaster || casts(node, *snapshot.lights()[view.light].light);
        shadowed = shadowed.united(shadowReach(node, view, snapshot, picture));
    }
    shadowed = shadowed.intersected(boundsOnScreen(node, snapshot.camera(), picture));
    // A caster usually shades itself everywhere, so it is drawn once with shadows. Any other item
    // is drawn without shadows, and again where shadows fall. So its key stays the same when a
    // shadow passes over it, and it can stay in the still layer.
    if (isCaster && !shadowed.isEmpty())
        return {&item, all, all};
    const ItemPainter::Lights free = painter.lightsFor(frame, item, Shadows::none);
    const bool isDarkened = !shadowed.isEmpty() && painter.canBeDarkened(*item.material);
    return {&item, free, all, shadowed, isDarkened};
}

bool SceneDrawer::hidesItself(const ItemPainter::Frame& frame, const DrawItem& item) const {
    constexpr std::uint32_t kDense = 3 * 2000; // indices
    return painter.showsBackFaces(frame, item) && painter.fadesAsAWhole(*item.material) &&
           drawnRange(snapshot.nodes()[item.node], item.element).indexCount > kDense;
}

void SceneDrawer::keepWhatTheLayerShows(const scene::SCNScene& scene) {
    layerOwners.clear();
    layerOwners.push_back(probeOf(scene));
    for (std::size_t i = 0; i < opaques.size(); ++i) {
        if (!layer.holds(keys[i]))
            continue;
        keepPicturesOf(*opaques[i].item);
    }
    for (std::size_t i = 0; i < veils.size(); ++i) {
        if (layer.holds(veils[i].key))
            keepPicturesOf(snapshot.translucent()[i]);
    }
}

void SceneDrawer::keepPicturesOf(const DrawItem& item) {
    for (image::ImagePtr& picture : painter.pictures(item))
        layerOwners.push_back(std::move(picture));
}

void SceneDrawer::drawBackground(const Frame& frame, const RenderTarget& target) {
    background.draw(
        {state, textures, frame.items.uniforms}, frame.background, snapshot.camera(), target);
    state.clearDepth();
    frame.items.uniforms.bind(state, kFrameBinding, frame.block);
}

void SceneDrawer::drawWhole(const ItemPainter::Frame& frame, const OpaqueItem& opaque) {
    if (!opaque.isDepthFirst) {
        painter.draw(frame, *opaque.item, opaque.lights, DepthTest::nearer);
        return;
    }
    painter.drawDepth(frame, *opaque.item);
    painter.draw(frame, *opaque.item, opaque.lights, DepthTest::nearerOrEqual);
}

void SceneDrawer::drawShadowed(
    const ItemPainter::Frame& frame, const OpaqueItem& opaque, DepthTest depthTest) {
    if (opaque.shadowed.isEmpty())
        return;
    state.setScissor(opaque.shadowed);
    if (opaque.isDarkened) {
        painter.applyShade(frame, *opaque.item);
    } else {
        painter.draw(frame, *opaque.item, opaque.shadowLights, depthTest);
    }
    state.setScissor(std::nullopt);
}

bool SceneDrawer::hasTranslucent() const {
    return std::ranges::any_of(veils, [](const Veil& veil) { return veil.place == Place::inTurn; });
}

void SceneDrawer::planTranslucent(const Frame& frame) {
    const CameraView& camera = snapshot.camera();
    const Size size = frame.target.size();
    const std::span<const VisibleNode> nodes = snapshot.nodes();
    order.begin(camera, size);
    for (std::size_t i = 0; i < opaques.size(); ++i) {
        const OpaqueItem& opaque = opaques[i];
        const VisibleNode& node = nodes[opaque.item->node];
        if (!layer.holds(keys[i]))
            order.addLater(node, boundsOnScreen(node, camera, size));
        else if (!opaque.isDarkened)
            order.addLater(node, opaque.shadowed);
        if (opaque.isDarkened)
            order.addShade(node, opaque.shadowed);
    }
    if (catcher)
        order.addLater(nodes[catcher->item->node], catcher->shadowed);
    if (const std::optional<Snapshot::Floor>& shown = snapshot.floor()) {
        const VisibleNode& node = nodes[shown->item.node];
        order.addFloor(node, boundsOnScreen(node, camera, size), floor.darkPart(camera, size));
    }
    const std::span<const DrawItem> items = snapshot.translucent();
    veils.assign(items.size(), {});
    forEachGroup(items, [&](std::size_t first, std::size_t count) {
        const DrawItem& item = items[first];
        Veil& veil = veils[first];
        if (count == 1 && !painter.fadesAsAWhole(*item.material))
            veil.place = order.placeOf(nodes[item.node], item);
        if (veil.place == TranslucentOrder::Place::beforeAll)
            veil.key = painter.key(frame.items, item, lightsOf(frame.items, item));
        for (std::size_t i = first; i < first + count && !layer.holds(veil.key); ++i)
            order.addUnheld(nodes[items[i].node], items[i], veil.place);
    });
}

void SceneDrawer::drawEarly(const Frame& frame) {
    for (std::size_t i = 0; i < veils.size(); ++i) {
        if (veils[i].place != Place::inTurn && !layer.holds(veils[i].key))
            drawTranslucent(frame, snapshot.translucent().subspan(i, 1));
    }
}

void SceneDrawer::drawTranslucent(const Frame& frame) {
    const std::span<const DrawItem> items = snapshot.translucent();
    forEachGroup(items, [&](std::size_t first, std::size_t count) {
        if (veils[first].place == Place::inTurn)
            drawTranslucent(frame, items.subspan(first, count));
    });
}

void SceneDrawer::drawTranslucent(const Frame& frame, std::span<const DrawItem> group) {
    // For fading solids, draw the depth first. Then only their front is coloured: they fade as
    // one thing, and what stands inside stays hidden.
    for (const DrawItem& item : group) {
        if (painter.fadesAsAWhole(*item.material))
            painter.drawDepth(frame.items, item);
    }
    for (const DrawItem& item : group) {
        painter.draw(
            frame.items,
            item,
            lightsOf(frame.items, item),
            painter.fadesAsAWhole(*item.material) ? DepthTest::equal : DepthTest::nearer);
    }
}

} // namespace zelvo::render
