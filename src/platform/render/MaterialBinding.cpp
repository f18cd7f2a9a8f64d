// SPDX-License-Identifier: MIT
#include "platform/render/MaterialBinding.h"

#include <glm/geometric.hpp>

namespace zelvo::render {
namespace {

using scene::SCNLightingModel;
using scene::SCNMaterial;
using scene::SCNMaterialProperty;

constexpr float kDielectric = 0.5f; ///< 4 % reflection at normal incidence
constexpr float kDefaultRoughness = 0.5f;

struct SlotRow {
    Unit unit;
    SCNMaterialProperty SCNMaterial::*slot;
    const char* define;
};

// clang-format off
constexpr auto kSlots = std::to_array<SlotRow>({
    {kDiffuseUnit,          &SCNMaterial::diffuse,          "HAS_DIFFUSE_PICTURE"          },
    {kSpecularUnit,         &SCNMaterial::specular,         "HAS_SPECULAR_PICTURE"         },
    {kEmissionUnit,         &SCNMaterial::emission,         "HAS_EMISSION_PICTURE"         },
    {kTransparentUnit,      &SCNMaterial::transparent,      "HAS_TRANSPARENT_PICTURE"      },
    {kReflectiveUnit,       &SCNMaterial::reflective,       "HAS_REFLECTIVE_PICTURE"       },
    {kMultiplyUnit,         &SCNMaterial::multiply,         "HAS_MULTIPLY_PICTURE"         },
    {kNormalUnit,           &SCNMaterial::normal,           "HAS_NORMAL_PICTURE"           },
    {kAmbientOcclusionUnit, &SCNMaterial::ambientOcclusion, "HAS_AMBIENT_OCCLUSION_PICTURE"},
    {kSelfIlluminationUnit, &SCNMaterial::selfIllumination, "HAS_SELF_ILLUMINATION_PICTURE"},
    {kMetalnessUnit,        &SCNMaterial::metalness,        "HAS_METALNESS_PICTURE"        },
    {kRoughnessUnit,        &SCNMaterial::roughness,        "HAS_ROUGHNESS_PICTURE"        },
});
// clang-format on
static_assert(kSlots.size() == kSlotUnitCount);

struct FeatureRow {
    std::uint32_t feature;
    const char* define;
};

// clang-format off
constexpr auto kFeatures = std::to_array<FeatureRow>({
    {kLit,             "LIT"                 },
    {kSceneLight,      "SCENE_LIGHT"         },
    {kDiffuseHasHoles, "DIFFUSE_HAS_HOLES"   },
    {kRgbZero,         "TRANSPARENT_RGB_ZERO"},
    {kSlotTransforms,  "SLOT_TRANSFORMS"     },
    {kDoubleSided,     "DOUBLE_SIDED"        },
    {kTranslucent,     "TRANSLUCENT"         },
    {kMultiplyBlend,   "MULTIPLY_BLEND"      },
    {kEnvironment,     "HAS_ENVIRONMENT"     },
    {kAddsLight,       "GLOW"                },
    {kCutOut,          "CUT_OUT"             },
    {kVertexColors,    "HAS_VERTEX_COLORS"   },
    {kClearCoat,       "CLEAR_COAT"          },
    {kGreyShade,       "GREY"                },
    {kOpenness,        "HAS_OPENNESS"        },
});

// clang-format on

/// A colour slot's factor in the shader: the linear colour (white if the slot has a picture) times
/// the intensity.
glm::vec4 colorFactor(const SCNMaterialProperty& slot, const glm::vec3& empty) {
    if (slot.isEmpty())
        return {empty, 0};
    return {linearColor(slot.colorOr(image::Color::white(1))) * slot.intensity, 0};
}

/// A data slot's number, without any decoding. Of a colour, only red counts.
float dataFactor(const SCNMaterialProperty& slot, float empty) {
    if (slot.isEmpty())
        return empty;
    return slot.colorOr(image::Color::white(1)).red * slot.intensity;
}

bool hasOneTransform(const MaterialBinding& binding) {
    const SCNMaterialProperty* first = nullptr;
    for (const SCNMaterialProperty* slot : binding.pictures) {
        if (slot == nullptr)
            continue;
        if (first != nullptr && first->contentsTransform != slot->contentsTransform)
            return false;
        first = slot;
    }
    return true;
}

void bindPictures(MaterialBinding& binding, const SCNMaterial& material, PictureHoles& holes) {
    for (const SlotRow& row : kSlots) {
        const SCNMaterialProperty& slot = material.*row.slot;
        if (!slot.image())
            continue;
        binding.pictures.at(row.unit) = &slot;
        binding.features |= slotFeature(row.unit);
        binding.item.uvTransform = slot.contentsTransform;
    }
    if (!hasOneTransform(binding))
        binding.features |= kSlotTransforms;
    if (holes.isIn(material.diffuse.image()))
        binding.features |= kDiffuseHasHoles;
    constexpr std::uint32_t kHoles = kDiffuseHasHoles | slotFeature(kTransparentUnit);
    if (material.blendMode == scene::SCNBlendMode::replace && (binding.features & kHoles) != 0)
        binding.features |= kCutOut;
}

} // namespace

std::vector<std::string> featureDefines(std::uint32_t features) {
    std::vector<std::string> defines;
    for (const SlotRow& row : kSlots) {
        if ((features & slotFeature(row.unit)) != 0)
            defines.emplace_back(row.define);
    }
    for (const FeatureRow& row : kFeatures) {
        if ((features & row.feature) != 0)
            defines.emplace_back(row.define);
    }
    return defines;
}

glm::vec3 linearColor(const image::Color& color) {
    return {
        image::linearFromSRGB(color.red),
        image::linearFromSRGB(color.green),
        image::linearFromSRGB(color.blue)};
}

MaterialBinding bindMaterial(const SCNMaterial& material, PictureHoles& holes) {
    MaterialBinding binding;
    bindPictures(binding, material, holes);
    const auto modifier =
        material.shaderModifiers.find(scene::SCNShaderModifierEntryPoint::surface);
    if (modifier != material.shaderModifiers.end())
        binding.modifier = &modifier->second;

    ItemBlock& item = binding.item;
    item.diffuse = colorFactor(material.diffuse, glm::vec3(1));
    item.emission = colorFactor(material.emission, glm::vec3(0));
    item.emission.w = material.normal.intensity;
    item.specular = colorFactor(material.specular, glm::vec3(kDielectric));
    item.specular.w = material.reflective.intensity;
    item.multiply = colorFactor(material.multiply, glm::vec3(1));
    item.selfIllumination = colorFactor(material.selfIllumination, glm::vec3(0));
    item.factors = {
        dataFactor(material.roughness, kDefaultRoughness),
        dataFactor(material.metalness, 0),
        material.ambientOcclusion.image() ? material.ambientOcclusion.intensity
                                          : dataFactor(material.ambientOcclusion, 1),
        material.transparent.intensity};

    if (material.lightingModelName == SCNLightingModel::physicallyBased)
        binding.features |= kLit;
    else if (material.blendMode == scene::SCNBlendMode::add)
        binding.features |= kAddsLight;
    if ((binding.features & kLit) != 0 && material.clearCoat > 0)
        binding.features |= kClearCoat;
    item.multiply.w = material.clearCoat;
    item.selfIllumination.w = material.clearCoatRelief;
    if (material.isDoubleSided)
        binding.features |= kDoubleSided;
    if (material.transparencyMode == scene::SCNTransparencyMode::rgbZero)
        binding.features |= kRgbZero;
    return binding;
}

void moveTexture(MaterialBinding& binding, const glm::vec2& shift) {
    binding.textureShift = shift;
    binding.item.uvTransform[3] += glm::vec4(shift, 0, 0);
}

SlotBlock slotTransforms(const MaterialBinding& binding) {
    SlotBlock block;
    for (std::size_t unit = 0; unit < kSlotUnitCount; ++unit) {
        const SCNMaterialProperty* slot = binding.pictures.at(unit);
        glm::mat4& matrix = block.slotTransform.at(unit);
        matrix = slot != nullptr ? slot->contentsTransform : glm::mat4(1);
        matrix[3] += glm::vec4(binding.textureShift, 0, 0);
    }
    return block;
}

} // namespace zelvo::render
