// SPDX-License-Identifier: MIT
#include "platform/scene/SCNMaterial.h"

#include "platform/image/reading/ImageNamed.h"

#include <glm/gtc/matrix_transform.hpp>

namespace zelvo::scene {

namespace {

/// One list for both the const and the non-const version.
template <class Material> auto slotsOf(Material& material) {
    return std::array{
        &material.diffuse,
        &material.ambient,
        &material.specular,
        &material.emission,
        &material.transparent,
        &material.reflective,
        &material.multiply,
        &material.normal,
        &material.displacement,
        &material.ambientOcclusion,
        &material.selfIllumination,
        &material.metalness,
        &material.roughness};
}

} // namespace

image::Color SCNMaterialProperty::colorOr(const image::Color& fallback) const {
    if (isEmpty())
        return fallback;
    if (const auto* color = std::get_if<image::Color>(&contents))
        return *color;
    if (const auto* grey = std::get_if<float>(&contents))
        return image::Color::white(*grey);
    return image::Color::white(1);
}

image::ImagePtr SCNMaterialProperty::image() const {
    using Later = std::shared_ptr<const image::LazyImage>;
    if (const auto* later = std::get_if<Later>(&contents))
        return (*later)->image();
    const auto* picture = std::get_if<image::ImagePtr>(&contents);
    return picture != nullptr ? *picture : nullptr;
}

void SCNMaterialProperty::setImage(const image::ImagePtr& picture) {
    if (picture) {
        contents = picture;
    } else {
        contents = std::monostate();
    }
}

std::array<SCNMaterialProperty*, SCNMaterial::kSlotCount> SCNMaterial::allProperties() {
    return slotsOf(*this);
}

std::array<const SCNMaterialProperty*, SCNMaterial::kSlotCount> SCNMaterial::allProperties() const {
    return slotsOf(*this);
}

void SCNMaterial::setContentsScale(float scale) {
    const glm::mat4 matrix = glm::scale(glm::mat4(1), glm::vec3(scale, scale, 1));
    for (SCNMaterialProperty* property : allProperties()) {
        property->contentsTransform = matrix;
    }
}

} // namespace zelvo::scene
