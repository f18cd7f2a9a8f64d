// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/PictureHoles.h"
#include "platform/render/ShaderBlocks.h"
#include "platform/scene/SCNMaterial.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace zelvo::render {

/// What a material needs from the surface shader; none for a plain material without pictures. The
/// first bits are slots, numbered by texture unit.
enum Feature : std::uint32_t {
    kLit = 1U << 11U,
    kSceneLight = 1U << 12U, ///< the colour is light of the scene and is tone mapped
    kDiffuseHasHoles = 1U << 13U,
    kRgbZero = 1U << 14U,
    kSlotTransforms = 1U << 15U,
    kDoubleSided = 1U << 16U,
    kTranslucent = 1U << 17U,
    kMultiplyBlend = 1U << 18U,
    kEnvironment = 1U << 19U,
    kAddsLight = 1U << 20U, ///< adds light of its own
    kCutOut = 1U << 21U, ///< drawn where the pictures' opacity is at least a half, and opaque there
    kVertexColors = 1U << 22U,
    kGreyShade = 1U << 23U, ///< with kShade: the same for all colours
    kClearCoat = 1U << 24U,
    kShade = 1U << 25U,    ///< instead of the colour: how much darker shadows make it; shade.frag
    kOpenness = 1U << 26U, ///< walls that hide light from each other
};

[[nodiscard]] constexpr std::uint32_t slotFeature(Unit unit) {
    return 1U << unit;
}

/// The `#define` lines for a set of features.
[[nodiscard]] std::vector<std::string> featureDefines(std::uint32_t features);

/// A material in the form that the shader needs. The slots `ambient` (it follows `diffuse`) and
/// `displacement` (kept, not drawn) are not used.
struct MaterialBinding {
    std::uint32_t features = 0;
    ItemBlock item; ///< the caller adds matrices and opacity
    /// By texture unit. Null: the slot has no picture.
    std::array<const scene::SCNMaterialProperty*, kSlotUnitCount> pictures{};
    const std::string* modifier = nullptr; ///< null: no modifier
    glm::vec2 textureShift{0};
};

[[nodiscard]] MaterialBinding bindMaterial(const scene::SCNMaterial& material, PictureHoles& holes);

/// Adds to the texture coordinates of all pictures.
void moveTexture(MaterialBinding& binding, const glm::vec2& shift);

/// The contents transforms of the slots that have pictures, by texture unit.
[[nodiscard]] SlotBlock slotTransforms(const MaterialBinding& binding);

/// From an sRGB colour, without its alpha.
[[nodiscard]] glm::vec3 linearColor(const image::Color& color);

} // namespace zelvo::render
