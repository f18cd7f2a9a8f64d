// SPDX-License-Identifier: MIT
#include "platform/render/FrameDrawer.h"

#include <epoxy/gl.h>
#include <glm/matrix.hpp>

#include <cmath>

namespace zelvo::render {
namespace {

using scene::SCNBlendMode;

Blend blendOf(SCNBlendMode mode) {
    switch (mode) {
    case SCNBlendMode::alpha:
        return Blend::over;
    case SCNBlendMode::add:
        return Blend::add;
    case SCNBlendMode::subtract:
        return Blend::subtract;
    case SCNBlendMode::multiply:
        return Blend::multiply;
    case SCNBlendMode::screen:
        return Blend::screen;
    case SCNBlendMode::replace:
        return Blend::off;
    }
    return Blend::over;
}

constexpr bool isData(std::size_t unit) {
    return unit == kNormalUnit || unit == kAmbientOcclusionUnit || unit == kMetalnessUnit ||
           unit == kRoughnessUnit;
}

/// A solid that only its opacity makes translucent: its inside must not show while it fades.
bool fadesAsAWhole(const scene::SCNMaterial& material, const MaterialBinding& binding) {
    constexpr std::uint32_t kHoles = kDiffuseHasHoles | slotFeature(kTransparentUnit);
    return material.blendMode == SCNBlendMode::alpha && (binding.features & kHoles) == 0;
}

Winding windingOf(const glm::mat4& world) {
    return glm::determinant(glm::mat3(world)) < 0 ? Winding::clockwise : Winding::counterClockwise;
}

} // namespace

/// What the parts of one frame's drawing share.
struct FrameDrawer::Frame {
    UniformArena& uniforms;
    std::uint32_t features = 0; ///< of every material: tone map, environment
    std::size_t boundLights = SIZE_MAX;
};

FrameDrawer::FrameDrawer(const DeviceInfo& device)
    : textures(device, holes) {
    state.forget();
}

void FrameDrawer::draw(
    const scene::SCNScene& scene,
    const scene::SCNNode* pointOfView,
    const DrawTarget& target,
    UniformArena& uniforms) {
    const float aspect =
        static_cast<float>(target.size.width) / static_cast<float>(target.size.height);
    snapshot.take(scene, pointOfView, aspect);
    uniforms.reset();
    views = shadowViews(snapshot);
    lightSets.clear();
    shadows.draw({state, meshes, shaders, uniforms}, snapshot, views);
    background.draw(
        {state, textures, uniforms},
        scene.background,
        snapshot.camera(),
        target.framebuffer,
        target.size);
    state.clearDepth();

    Frame frame{uniforms};
    const scene::SCNCamera* camera = snapshot.sceneCamera();
    if (camera != nullptr && camera->wantsHDR)
        frame.features |= kToneMap;
    if (const std::shared_ptr<const image::LightProbe> probe = probeOf(scene)) {
        frame.features |= kEnvironment;
        state.bindTexture(kProbeUnit, textures.probe(probe), textures.smoothSampler());
    }
    uniforms.bind(state, kFrameBinding, frameBlock(scene));
    for (const DrawItem& item : snapshot.opaque()) {
        drawItem(frame, item, DepthTest::nearer);
    }
    drawTranslucent(frame);
    particles.draw({state, textures}, snapshot);
    const bool hasDroppedTextures = textures.prune();
    if (meshes.prune() || hasDroppedTextures)
        state.forgetBindings();
}

std::shared_ptr<const image::LightProbe> FrameDrawer::probeOf(const scene::SCNScene& scene) {
    const image::ImagePtr picture = scene.lightingEnvironment.image();
    return picture ? picture->lightProbe : nullptr;
}

FrameBlock FrameDrawer::frameBlock(const scene::SCNScene& scene) const {
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
        0};
    if (const auto probe = probeOf(scene)) {
        for (std::size_t i = 0; i < block.irradiance.size(); ++i) {
            block.irradiance.at(i) = glm::vec4(probe->irradiance.at(i), 0);
        }
    }
    return block;
}

std::size_t FrameDrawer::lightSetFor(std::uint32_t mask) {
    for (std::size_t i = 0; i < lightSets.size(); ++i) {
        if (lightSets[i].mask == mask)
            return i;
    }
    lightSets.push_back(makeLightSet(snapshot.lights(), views, mask));
    return lightSets.size() - 1;
}

void FrameDrawer::bindLights(Frame& frame, std::size_t index) {
    if (frame.boundLights == index)
        return;
    frame.boundLights = index;
    const LightSet& set = lightSets[index];
    frame.uniforms.bind(state, kLightBinding, set.block);
    const int maps = set.counts.directionalShadows + set.counts.spotShadows;
    for (std::uint32_t i = 0; i < static_cast<std::uint32_t>(maps); ++i) {
        state.bindTexture(
            kShadowUnit + i, shadows.texture(set.shadowViews.at(i)), textures.shadowSampler());
    }
}

void FrameDrawer::bindPictures(const MaterialBinding& binding) {
    for (std::uint32_t unit = 0; unit < kSlotUnitCount; ++unit) {
        const scene::SCNMaterialProperty* slot = binding.pictures.at(unit);
        if (slot != nullptr) {
            const PictureUse use = isData(unit) ? PictureUse::data : PictureUse::color;
            const scene::SCNWrapMode wrapS =
                unit == kReflectiveUnit ? scene::SCNWrapMode::repeat : slot->wrapS;
            state.bindTexture(
                unit, textures.picture(slot->image(), use), textures.sampler(wrapS, slot->wrapT));
        } else if (binding.modifier != nullptr && unit <= kEmissionUnit) {
            state.bindTexture(unit, textures.white(), textures.smoothSampler());
        }
    }
}

void FrameDrawer::drawItem(Frame& frame, const DrawItem& item, DepthTest depthTest) {
    const VisibleNode& node = snapshot.nodes()[item.node];
    MaterialBinding binding = bindMaterial(*item.material, holes);
    const SCNBlendMode mode = item.material->blendMode;
    const bool isTranslucent = depthTest == DepthTest::equal || item.isTranslucent;
    binding.features |= frame.features;
    if ((binding.features & kLit) == 0)
        binding.features &= ~static_cast<std::uint32_t>(kEnvironment);
    if (isTranslucent)
        binding.features |= kTranslucent;
    if (mode == SCNBlendMode::multiply)
        binding.features |= kMultiplyBlend;
    binding.item.world = node.world;
    binding.item.normalMatrix = glm::mat4(glm::transpose(glm::inverse(glm::mat3(node.world))));
    binding.item.diffuse.a = node.opacity * constantOpacity(*item.material);

    const std::size_t lights = lightSetFor(node.categoryBitMask);
    state.useProgram(shaders.program(binding.features, lightSets[lights].counts, binding.modifier));
    if ((binding.features & kLit) != 0)
        bindLights(frame, lights);
    bindPictures(binding);
    if ((binding.features & kSlotTransforms) != 0) {
        frame.uniforms.bind(state, kSlotBinding, slotTransforms(binding));
    }
    frame.uniforms.bind(state, kItemBinding, binding.item);
    state.set(
        {.depthTest = depthTest,
         .depthWrite = isTranslucent ? DepthWrite::off : DepthWrite::on,
         .culling = item.material->isDoubleSided ? Culling::none : Culling::backFaces,
         .winding = windingOf(node.world),
         .fill = item.material->fillMode == scene::SCNFillMode::lines ? Fill::lines : Fill::faces,
         .blend = isTranslucent ? blendOf(mode) : Blend::off});
    submit(item);
}

void FrameDrawer::drawDepth(Frame& frame, const DrawItem& item) {
    const VisibleNode& node = snapshot.nodes()[item.node];
    ItemBlock block;
    block.world = node.world;
    state.useProgram(shaders.depthProgram(SurfaceShaders::DepthOnly::whole));
    frame.uniforms.bind(state, kItemBinding, block);
    state.set(
        {.culling = item.material->isDoubleSided ? Culling::none : Culling::backFaces,
         .winding = windingOf(node.world),
         .colorWrite = ColorWrite::off});
    submit(item);
}

void FrameDrawer::drawTranslucent(Frame& frame) {
    const std::span<const DrawItem> items = snapshot.translucent();
    for (std::size_t first = 0; first < items.size();) {
        std::size_t end = first;
        while (end < items.size() && items[end].node == items[first].node) {
            ++end;
        }
        const std::span<const DrawItem> ofNode = items.subspan(first, end - first);
        // A fading solid: its depth alone, then the colour of what is in front, so that it fades as
        // a whole.
        for (const DrawItem& item : ofNode) {
            if (fadesAsAWhole(*item.material, bindMaterial(*item.material, holes)))
                drawDepth(frame, item);
        }
        for (const DrawItem& item : ofNode) {
            const bool isWhole = fadesAsAWhole(*item.material, bindMaterial(*item.material, holes));
            drawItem(frame, item, isWhole ? DepthTest::equal : DepthTest::nearer);
        }
        first = end;
    }
}

void FrameDrawer::submit(const DrawItem& item) {
    const scene::SCNGeometry& geometry = *snapshot.nodes()[item.node].geometry;
    const geometry::MeshElement& element = geometry.mesh().elements[item.element];
    state.bindVertexArray(meshes.vertexArray(geometry));
    const std::uintptr_t offset = std::uintptr_t{element.firstIndex} * sizeof(std::uint32_t);
    glDrawElements(
        GL_TRIANGLES,
        static_cast<GLsizei>(element.indexCount),
        GL_UNSIGNED_INT,
        reinterpret_cast<const void*>(offset)); // NOLINT: OpenGL passes offsets as pointers
}

} // namespace zelvo::render
