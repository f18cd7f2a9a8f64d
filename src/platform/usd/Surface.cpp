// SPDX-License-Identifier: MIT
#include "platform/usd/Surface.h"

#include "platform/usd/DisplayColor.h"
#include "platform/usd/ShaderNetwork.h"

#include <fmt/format.h>
#include <glm/common.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::usd {

using object::Channel;
using object::Slot;

namespace {

/// The shader of a material; null if it has none that is known. The plain output is meant for every
/// renderer, the others are a fallback.
const Prim* surfaceShaderOf(const Stage& stage, const Prim& material) {
    const Prim* plain = sourceOf(stage, material, "outputs:surface").shader;
    if (plain != nullptr)
        return plain;
    for (const std::string& name : material.namesBeginning("outputs:")) {
        if (name.ends_with(":surface")) {
            if (const Prim* other = sourceOf(stage, material, name).shader)
                return other;
        }
    }
    return nullptr;
}

/// A number from an input that is not connected to a picture.
std::optional<double>
plainNumber(const Stage& stage, const Prim& shader, const std::string& input) {
    const InputSource source = sourceOf(stage, shader, input);
    return source.holder == nullptr ? std::nullopt : source.holder->number(source.attribute);
}

/// The metal that looks most like a surface with this reflection: bright reflections come from
/// metals, whose base colour they are.
void applySpecular(const glm::vec3& specular, object::Material& material) {
    constexpr float kBrightestDielectric = 0.25F;
    constexpr float kMiddle = 0.5F; // of a picture
    const auto brightest = [](const glm::vec3& c) { return std::max({c.r, c.g, c.b}); };
    const float reflection = brightest(specular);
    if (reflection <= kBrightestDielectric)
        return;
    const bool isPlain = !material.baseColor.picture;
    const float base = isPlain ? brightest(material.baseColor.factor) : kMiddle;
    material.metalness.factor = reflection / (reflection + base);
    if (isPlain)
        material.baseColor.factor =
            glm::mix(material.baseColor.factor, specular, material.metalness.factor);
}

/// Numbers of normals become those of a texel, because a normal map is stored as 2 * texel - 1. An
/// exporter that says nothing forgot it.
void applyNormalScale(object::PictureUse& use) {
    if (use.scale == glm::vec4(1) && use.bias == glm::vec4(0))
        return;
    use.scale /= 2.0F;
    use.bias = (use.bias + 1.0F) / 2.0F;
}

float clamped(float value, float low, float high) {
    return std::isnan(value) ? low : std::clamp(value, low, high);
}

} // namespace

const Surface* SurfaceReader::read(const std::string& materialPath) {
    const auto [place, isNew] = surfaces.try_emplace(materialPath);
    if (isNew) {
        const Prim* prim = stage.at(materialPath);
        if (prim == nullptr) {
            stage.warnings().add(fmt::format("the material {} is missing", materialPath));
        } else if (scene.materials.size() < object::Limits::kMaxMaterials) {
            place->second = make(*prim);
        }
    }
    return place->second ? &*place->second : nullptr;
}

Surface SurfaceReader::make(const Prim& prim) {
    Surface surface;
    object::Material material;
    material.name = prim.name;
    material.baseColor.factor = glm::vec3(kPlainGray);
    const Prim* shader = surfaceShaderOf(stage, prim);
    if (shader != nullptr && shaderKind(*shader) == "UsdPreviewSurface") {
        fill(*shader, material, surface);
    } else {
        stage.warnings().add(fmt::format("the material {} has no preview surface", prim.name));
    }
    surface.material = scene.materials.size();
    scene.materials.push_back(std::move(material));
    return surface;
}

void SurfaceReader::fill(const Prim& shader, object::Material& material, Surface& surface) {
    fillColors(shader, material, surface);
    const bool isSpecular =
        plainNumber(stage, shader, "inputs:useSpecularWorkflow").value_or(0) != 0;
    if (isSpecular) {
        const auto specular = colorSlot(shader, "inputs:specularColor", glm::vec3(0), surface);
        if (!specular.picture)
            applySpecular(specular.factor, material);
    } else {
        material.metalness = numberSlot(shader, "inputs:metallic", 0, surface);
    }
    material.roughness = numberSlot(shader, "inputs:roughness", 0.5F, surface);
    material.opacity = numberSlot(shader, "inputs:opacity", 1, surface);
    material.occlusion = numberSlot(shader, "inputs:occlusion", 1, surface);
    if (!material.occlusion.picture)
        material.occlusion.factor = 1; // a constant says nothing about places
    const double threshold = plainNumber(stage, shader, "inputs:opacityThreshold").value_or(0);
    material.cutOutBelow = clamped(static_cast<float>(threshold), 0, 1);
    const InputSource normal = sourceOf(stage, shader, "inputs:normal");
    if (normal.shader != nullptr && shaderKind(*normal.shader) == "UsdUVTexture") {
        material.normal.picture = textures.read(*normal.shader, normal.output).picture;
        if (material.normal.picture)
            applyNormalScale(*material.normal.picture);
    }
}

void SurfaceReader::fillColors(const Prim& shader, object::Material& material, Surface& surface) {
    material.baseColor = colorSlot(shader, "inputs:diffuseColor", glm::vec3(kPlainGray), surface);
    material.emission = colorSlot(shader, "inputs:emissiveColor", glm::vec3(0), surface);
    const InputSource source = sourceOf(stage, shader, "inputs:diffuseColor");
    if (source.shader == nullptr || !shaderKind(*source.shader).starts_with("UsdPrimvarReader"))
        return;
    const InputSource name = sourceOf(stage, *source.shader, "inputs:varname");
    surface.colorName = name.holder == nullptr ? std::string() : name.holder->text(name.attribute);
    if (!surface.colorName.empty())
        material.baseColor.factor = glm::vec3(1);
}

Slot<float> SurfaceReader::numberSlot(
    const Prim& shader, const std::string& input, float fallback, Surface& surface) {
    Slot<float> slot{fallback, {}};
    const InputSource source = sourceOf(stage, shader, input);
    std::optional<double> plain = shader.number(input);
    if (source.shader != nullptr && shaderKind(*source.shader) == "UsdUVTexture") {
        TextureValue value = textures.read(*source.shader, source.output);
        if (value.picture) {
            if (value.picture->channel == Channel::color)
                value.picture->channel = Channel::red;
            if (surface.uvName.empty())
                surface.uvName = value.uvName;
            return {1, value.picture};
        }
        if (!plain && value.fallback)
            plain = value.fallback->r;
    } else if (source.holder != nullptr) {
        plain = source.holder->number(source.attribute);
    }
    slot.factor = clamped(static_cast<float>(plain.value_or(fallback)), 0, 1);
    return slot;
}

Slot<glm::vec3> SurfaceReader::colorSlot(
    const Prim& shader, const std::string& input, glm::vec3 fallback, Surface& surface) {
    Slot<glm::vec3> slot{fallback, {}};
    const InputSource source = sourceOf(stage, shader, input);
    Numbers plain = shader.numbers(input, 3);
    if (source.shader != nullptr && shaderKind(*source.shader) == "UsdUVTexture") {
        const TextureValue value = textures.read(*source.shader, source.output);
        if (value.picture) {
            if (surface.uvName.empty())
                surface.uvName = value.uvName;
            return {glm::vec3(1), value.picture};
        }
        if (plain.empty() && value.fallback)
            plain = {value.fallback->r, value.fallback->g, value.fallback->b};
    } else if (source.holder != nullptr) {
        plain = source.holder->numbers(source.attribute, 3);
    }
    constexpr float kBrightest = 1000; // light may be brighter than white
    if (plain.size() >= 3) {
        for (int i = 0; i < 3; ++i)
            slot.factor[i] =
                clamped(static_cast<float>(plain[static_cast<std::size_t>(i)]), 0, kBrightest);
    }
    return slot;
}

} // namespace zelvo::usd
