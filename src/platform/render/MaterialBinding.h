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

/// What a surface's shader must be able to do; a plain material has no bits and samples no picture.
/// The slot bits stand at their texture units.
enum Feature : std::uint32_t {
    kLit = 1U << 11U,
    kPassThrough = 1U << 12U, ///< the diffuse contents go to the target as they are encoded
    kDiffuseHasHoles = 1U << 13U,
    kRgbZero = 1U << 14U,
    kSlotTransforms = 1U << 15U,
    kDoubleSided = 1U << 16U,
    kTranslucent = 1U << 17U,
    kMultiplyBlend = 1U << 18U,
    kEnvironment = 1U << 19U,
    kToneMap = 1U << 20U,
};

[[nodiscard]] constexpr std::uint32_t slotFeature(Unit unit) {
    return 1U << unit;
}

/// The shader's `#define` lines of a set of features.
[[nodiscard]] std::vector<std::string> featureDefines(std::uint32_t features);

/// A material as the shader takes it. The slots `ambient` (it follows `diffuse`) and `displacement`
/// (kept, not drawn) have no part in it.
struct MaterialBinding {
    std::uint32_t features = 0;
    ItemBlock item; ///< matrices and opacity left to the caller
    std::array<const scene::SCNMaterialProperty*, kSlotUnitCount>
        pictures{};                        ///< null: the slot has none
    const std::string* modifier = nullptr; ///< null: none
};

[[nodiscard]] MaterialBinding bindMaterial(const scene::SCNMaterial& material, PictureHoles& holes);

/// Contents transforms of the slots that have pictures, by texture unit.
[[nodiscard]] SlotBlock slotTransforms(const MaterialBinding& binding);

/// How much of the material covers what is behind it, as far as that is the same all over: its
/// transparency times a colour or number in the slot `transparent`.
[[nodiscard]] float constantOpacity(const scene::SCNMaterial& material);

/// Of an sRGB colour; the alpha is left out.
[[nodiscard]] glm::vec3 linearColor(const image::Color& color);

} // namespace zelvo::render
