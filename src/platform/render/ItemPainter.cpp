// SPDX-License-Identifier: MIT
#include "platform/render/ItemPainter.h"

#include "platform/render/Hash.h"
#include "platform/render/StillLayer.h"
#include "platform/scene/MaterialOpacity.h"
#include "platform/scene/SCNColoredGeometry.h"

#include <epoxy/gl.h>
#include <glm/matrix.hpp>

namespace zelvo::render {
namespace {

using scene::SCNBlendMode;

Blend blendOf(SCNBlendMode mode) {
    switch (mode) {
    case SCNBlendMode::alpha:
    case SCNBlendMode::replace: // while the node fades
        return Blend::over;
    case SCNBlendMode::add:
        return Blend::add;
    case SCNBlendMode::subtract:
        return Blend::subtract;
    case SCNBlendMode::multiply:
        return Blend::multiply;
    case SCNBlendMode::screen:
        return Blend::screen;
    }
    return Blend::over;
}

constexpr bool isData(std::size_t unit) {
    return unit == kNormalUnit || unit == kAmbientOcclusionUnit || unit == kMetalnessUnit ||
           unit == kRoughnessUnit;
}

Winding windingOf(const glm::mat4& world, bool isMirrored) {
    const bool isTurned = glm::determinant(glm::mat3(world)) < 0;
    return isTurned != isMirrored ? Winding::clockwise : Winding::counterClockwise;
}

std::uint64_t keyOf(const LightSet& set, const ShadowPass& shadows) {
    Hash hash;
    hash.addBlock(set.block);
    hash.add(set.counts.key());
    const int maps = set.counts.directionalShadows + set.counts.spotShadows;
    for (std::size_t i = 0; i < static_cast<std::size_t>(maps); ++i) {
        hash.add(shadows.content(set.shadowViews.at(i)));
    }
    return hash.result();
}

/// Whether the lit colour is light of the scene. A surface that only ambient light falls on shows
/// the colours that the user gave it; a flash does not change them.
bool showsSceneLight(const MaterialBinding& binding, const LightSet& lights) {
    return (binding.features & kLit) != 0 &&
           (lights.hasLamps || (binding.features & kEnvironment) != 0);
}

void addPicture(Hash& hash, const scene::SCNMaterialProperty& slot) {
    hash.addAddress(slot.image().get());
    hash.addBlock(slot.contentsTransform);
    hash.add(static_cast<std::uint64_t>(slot.wrapS));
    hash.add(static_cast<std::uint64_t>(slot.wrapT));
}

} // namespace

void ItemPainter::begin() {
    sets.clear();
    boundLights = SIZE_MAX;
}

ItemPainter::Lights ItemPainter::lightsFor(
    const Frame& frame, const DrawItem& item, Shadows shadows, LightBits unshaded) {
    const std::span<const PlacedLight> lights = frame.snapshot.lights();
    const VisibleNode& node = frame.snapshot.nodes()[item.node];
    const std::uint32_t mask = node.categoryBitMask;
    const LightBits leftOut =
        showsBackFaces(frame, item) ? 0 : rearLightsBehind(lights, node, item.element);
    for (Lights i = 0; i < sets.size(); ++i) {
        const KeyedSet& known = sets[i];
        if (known.set.mask == mask && known.shadows == shadows && known.leftOut == leftOut &&
            known.unshaded == unshaded)
            return i;
    }
    const auto views = shadows == Shadows::cast ? frame.views : std::span<const ShadowView>();
    KeyedSet made{makeLightSet(lights, views, mask, leftOut, unshaded), shadows, leftOut, unshaded};
    made.key = keyOf(made.set, tools.shadows);
    sets.push_back(made);
    return sets.size() - 1;
}

bool ItemPainter::fadesAsAWhole(const scene::SCNMaterial& material) const {
    constexpr std::uint32_t kHoles = kDiffuseHasHoles | slotFeature(kTransparentUnit);
    return material.blendMode == SCNBlendMode::alpha &&
           (bindMaterial(material, tools.holes).features & kHoles) == 0;
}

bool ItemPainter::canBeDarkened(const scene::SCNMaterial& material) const {
    constexpr std::uint32_t kOthers = kCutOut | slotFeature(kReflectiveUnit);
    const MaterialBinding binding = bindMaterial(material, tools.holes);
    return (binding.features & kLit) != 0 && (binding.features & kOthers) == 0 &&
           binding.modifier == nullptr;
}

bool ItemPainter::showsBackFaces(const Frame& frame, const DrawItem& item) const {
    if (!item.material->isDoubleSided)
        return false;
    // They are also seen through what stands before them.
    return item.isTranslucent || !fadesAsAWhole(*item.material) ||
           canShowBackFaces(frame.snapshot.nodes()[item.node], frame.snapshot.camera().position);
}

MaterialBinding ItemPainter::bound(const Frame& frame, const DrawItem& item) const {
    const VisibleNode& node = frame.snapshot.nodes()[item.node];
    MaterialBinding binding = bindMaterial(*item.material, tools.holes);
    binding.features |= frame.features;
    if ((binding.features & kLit) == 0)
        binding.features &= ~static_cast<std::uint32_t>(kEnvironment);
    if (scene::coloredGeometry(*node.geometry, *item.material) != nullptr)
        binding.features |= kVertexColors;
    if (item.material->blendMode == SCNBlendMode::multiply)
        binding.features |= kMultiplyBlend;
    moveTexture(binding, node.textureShift);
    if (node.geometry->mesh().elements[item.element].isRim) {
        binding.item.emission.w *= item.material->rim.relief;
        binding.item.factors.x *= item.material->rim.roughness;
    }
    binding.item.world = node.world;
    binding.item.normalMatrix = glm::mat4(glm::transpose(glm::inverse(glm::mat3(node.world))));
    binding.item.diffuse.a = node.opacity * scene::constantOpacity(*item.material);
    return binding;
}

std::uint64_t
ItemPainter::key(const Frame& frame, const DrawItem& item, const Lights lights) const {
    const MaterialBinding binding = bound(frame, item);
    // A modifier can depend on time.
    if (binding.modifier != nullptr)
        return StillLayer::kMoving;
    Hash hash;
    const VisibleNode& node = frame.snapshot.nodes()[item.node];
    hash.add(node.geometry->revision());
    hash.add(node.level);
    hash.add(item.element);
    hash.add(binding.features);
    hash.addBlock(binding.item);
    for (const scene::SCNMaterialProperty* slot : binding.pictures) {
        if (slot != nullptr)
            addPicture(hash, *slot);
    }
    hash.add(static_cast<std::uint64_t>(item.material->fillMode));
    if ((binding.features & kLit) != 0)
        hash.add(sets[lights].key);
    return hash.result();
}

std::vector<image::ImagePtr> ItemPainter::pictures(const DrawItem& item) const {
    std::vector<image::ImagePtr> result;
    for (const scene::SCNMaterialProperty* slot :
         bindMaterial(*item.material, tools.holes).pictures) {
        if (slot != nullptr)
            result.push_back(slot->image());
    }
    return result;
}

void ItemPainter::bindLights(const Frame& frame, Lights lights) {
    if (boundLights == lights)
        return;
    boundLights = lights;
    const LightSet& set = sets[lights].set;
    frame.uniforms.bind(tools.state, kLightBinding, set.block);
    const int maps = set.counts.directionalShadows + set.counts.spotShadows;
    for (std::uint32_t i = 0; i < static_cast<std::uint32_t>(maps); ++i) {
        tools.state.bindTexture(
            kShadowUnit + i,
            tools.shadows.texture(set.shadowViews.at(i)),
            tools.textures.shadowSampler());
    }
}

void ItemPainter::bindPictures(const MaterialBinding& binding) {
    TextureStore& textures = tools.textures;
    for (std::uint32_t unit = 0; unit < kSlotUnitCount; ++unit) {
        const scene::SCNMaterialProperty* slot = binding.pictures.at(unit);
        if (slot != nullptr) {
            const PictureUse use = isData(unit) ? PictureUse::data : PictureUse::color;
            const scene::SCNWrapMode wrapS =
                unit == kReflectiveUnit ? scene::SCNWrapMode::repeat : slot->wrapS;
            tools.state.bindTexture(
                unit, textures.picture(slot->image(), use), textures.sampler(wrapS, slot->wrapT));
        } else if (binding.modifier != nullptr && unit <= kEmissionUnit) {
            tools.state.bindTexture(unit, textures.white(), textures.smoothSampler());
        }
    }
}

void ItemPainter::bind(const Frame& frame, const MaterialBinding& binding, Lights lights) {
    tools.state.useProgram(
        tools.shaders.program(binding.features, sets[lights].set.counts, binding.modifier));
    if ((binding.features & kLit) != 0)
        bindLights(frame, lights);
    bindPictures(binding);
    if ((binding.features & kSlotTransforms) != 0) {
        frame.uniforms.bind(tools.state, kSlotBinding, slotTransforms(binding));
    }
    frame.uniforms.bind(tools.state, kItemBinding, binding.item);
}

void ItemPainter::draw(
    const Frame& frame, const DrawItem& item, Lights lights, DepthTest depthTest) {
    // Its triangles would be culled, but not before its shader is built.
    const VisibleNode& node = frame.snapshot.nodes()[item.node];
    if (!showsBackFaces(frame, item) &&
        isTurnedFrom(frame.snapshot.camera().position, node, item.element))
        return;
    MaterialBinding binding = bound(frame, item);
    const bool isTranslucent = depthTest == DepthTest::equal || item.isTranslucent;
    if (isTranslucent)
        binding.features |= kTranslucent;
    const bool isSceneLight = showsSceneLight(binding, sets[lights].set);
    const geometry::Mesh& mesh = node.geometry->mesh();
    if (isSceneLight)
        binding.features |=
            mesh.elements[item.element].hasOpenness ? kSceneLight | kOpenness : kSceneLight;
    bind(frame, binding, lights);
    const scene::SCNMaterial& material = *item.material;
    submit(
        frame,
        item,
        {.depthTest = depthTest,
         .depthWrite = isTranslucent ? DepthWrite::off : DepthWrite::on,
         .fill = material.fillMode == scene::SCNFillMode::lines ? Fill::lines : Fill::faces,
         .blend = isTranslucent ? blendOf(material.blendMode) : Blend::off,
         .colors = isSceneLight ? Colors::ofScene : Colors::shown});
}

void ItemPainter::drawShape(const Frame& frame, const DrawItem& item, RasterState raster) {
    const VisibleNode& node = frame.snapshot.nodes()[item.node];
    ItemBlock block;
    block.world = node.world;
    frame.uniforms.bind(tools.state, kItemBinding, block);
    submit(frame, item, raster);
}

void ItemPainter::drawDepth(const Frame& frame, const DrawItem& item) {
    tools.state.useProgram(tools.shaders.depthProgram());
    drawShape(frame, item, {.colorWrite = ColorWrite::off});
}

void ItemPainter::drawShade(const Frame& frame, const DrawItem& item, Lights lights, Shade shade) {
    constexpr std::uint32_t kRead = kLit | kEnvironment | kSlotTransforms | kDoubleSided |
                                    kVertexColors | slotFeature(kDiffuseUnit) |
                                    slotFeature(kEmissionUnit) | slotFeature(kSelfIlluminationUnit);
    MaterialBinding binding = bound(frame, item);
    binding.features = (binding.features & kRead) | kShade;
    if (shade == Shade::grey)
        binding.features |= kGreyShade;
    bind(frame, binding, lights);
    submit(frame, item, {});
}

void ItemPainter::applyShade(const Frame& frame, const DrawItem& item) {
    tools.state.useProgram(tools.shaders.applyShadeProgram());
    drawShape(
        frame,
        item,
        {.depthTest = DepthTest::nearerOrEqual,
         .depthWrite = DepthWrite::off,
         .blend = Blend::multiply});
}

void ItemPainter::drawOver(const Frame& frame, const DrawItem& item, Blend blend, Colors colors) {
    const MaterialBinding binding = bound(frame, item);
    bindPictures(binding);
    frame.uniforms.bind(tools.state, kItemBinding, binding.item);
    submit(
        frame,
        item,
        {.depthTest = DepthTest::nearerOrEqual,
         .depthWrite = DepthWrite::off,
         .blend = blend,
         .colors = colors});
}

void ItemPainter::submit(const Frame& frame, const DrawItem& item, RasterState raster) {
    const VisibleNode& node = frame.snapshot.nodes()[item.node];
    raster.culling = showsBackFaces(frame, item) ? Culling::none : Culling::backFaces;
    raster.winding = windingOf(node.world, frame.isMirrored);
    tools.state.set(raster);
    const geometry::MeshElement element = drawnRange(node, item.element);
    tools.state.bindVertexArray(tools.meshes.vertexArray(*node.geometry, node.level));
    const std::uintptr_t offset = std::uintptr_t{element.firstIndex} * sizeof(std::uint32_t);
    glDrawElements(
        GL_TRIANGLES,
        static_cast<GLsizei>(element.indexCount),
        GL_UNSIGNED_INT,
        reinterpret_cast<const void*>(offset)); // NOLINT: OpenGL passes offsets as pointers
}

} // namespace zelvo::render
