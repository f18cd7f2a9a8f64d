// SPDX-License-Identifier: MIT
#include "platform/scene/ObjectNodes.h"

#include "platform/scene/ObjectPictures.h"
#include "platform/scene/SCNColoredGeometry.h"

#include <glm/gtc/constants.hpp>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/matrix.hpp>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace zelvo::scene {

using object::ObjectScene;
using object::PictureUse;

namespace {

/// A mesh that is there from the start.
class SCNReadGeometry final : public SCNColoredGeometry {
public:
    SCNReadGeometry(object::Piece& piece, const SCNMaterialPtr& material)
        : SCNColoredGeometry(std::move(piece.colors), material)
        , read(std::move(piece.mesh)) {
        materials = {material};
    }

private:
    /// Called once, because nothing asks for a rebuild.
    [[nodiscard]] geometry::Mesh build() const override { return std::move(read); }

    mutable geometry::Mesh read;
};

[[nodiscard]] SCNWrapMode wrapOf(object::Wrap wrap) {
    switch (wrap) {
    case object::Wrap::clamp:
        return SCNWrapMode::clamp;
    case object::Wrap::mirror:
        return SCNWrapMode::mirror;
    case object::Wrap::border:
        return SCNWrapMode::clampToBorder;
    default:
        return SCNWrapMode::repeat;
    }
}

/// A transform of (u, v, 1) as one of (u, v, 0, 1).
[[nodiscard]] glm::mat4 textureTransform(const glm::mat3& from) {
    return {
        glm::vec4(from[0].x, from[0].y, 0, 0),
        glm::vec4(from[1].x, from[1].y, 0, 0),
        glm::vec4(0, 0, 1, 0),
        glm::vec4(from[2].x, from[2].y, 0, 1)};
}

/// False if there is no picture, so that the slot needs a number.
bool setPicture(SCNMaterialProperty& slot, const PictureUse& use, const image::ImagePtr& picture) {
    slot.setImage(picture);
    slot.wrapS = wrapOf(use.wrapS);
    slot.wrapT = wrapOf(use.wrapT);
    slot.contentsTransform = textureTransform(use.transform);
    return picture != nullptr;
}

[[nodiscard]] image::Color colorOf(const glm::vec3& linear) {
    const auto part = [](float value) {
        return image::sRGBFromLinear(std::clamp(value, 0.0F, 1.0F));
    };
    return {part(linear.r), part(linear.g), part(linear.b), 1};
}

/// Turns one material into the renderer's.
class MaterialMaker {
public:
    MaterialMaker(const object::Material& given, ObjectPictures& made)
        : source(given)
        , pictures(made)
        , material(std::make_shared<SCNMaterial>()) {}

    [[nodiscard]] SCNMaterialPtr make() {
        material->name = source.name;
        material->isDoubleSided = source.isDoubleSided;
        material->lightingModelName =
            source.isUnlit ? SCNLightingModel::constant : SCNLightingModel::physicallyBased;
        setColorAndOpacity();
        if (source.cutOutBelow > 0)
            material->blendMode = SCNBlendMode::replace; // what is not cut out is opaque
        setNumber(material->metalness, source.metalness);
        setNumber(material->roughness, source.roughness);
        setEmission();
        if (source.occlusion.picture) {
            const PictureUse& use = *source.occlusion.picture;
            if (setPicture(material->ambientOcclusion, use, pictures.number(use)))
                material->ambientOcclusion.intensity = source.occlusion.factor;
        }
        if (source.normal.picture) {
            const PictureUse& use = *source.normal.picture;
            if (setPicture(material->normal, use, pictures.normal(use, source.normalPicture)))
                material->normal.intensity = source.normal.factor;
        }
        return material;
    }

private:
    void setColorAndOpacity() {
        std::optional<PictureOpacity> opacity;
        if (source.opacity.picture)
            opacity = {*source.opacity.picture, source.opacity.factor, source.cutOutBelow};
        const auto& base = source.baseColor;
        const bool isTogether =
            opacity && base.picture && usesSameTexels(opacity->use, *base.picture);
        if (!base.picture || !setPicture(
                                 material->diffuse,
                                 *base.picture,
                                 pictures.color(*base.picture, base.factor, opacity)))
            material->diffuse.contents = colorOf(base.factor);
        const bool isInDiffuse = isTogether && material->diffuse.image();
        const bool hasOpacity =
            isInDiffuse ||
            (opacity && setPicture(material->transparent, opacity->use, pictures.alpha(*opacity)));
        if (!hasOpacity) {
            const bool isCutOut = source.cutOutBelow > 0;
            material->transparency =
                isCutOut ? (source.opacity.factor < source.cutOutBelow ? 0.0F : 1.0F)
                         : source.opacity.factor;
        }
    }

    void setNumber(SCNMaterialProperty& slot, const object::Slot<float>& given) {
        if (given.picture && setPicture(slot, *given.picture, pictures.number(*given.picture))) {
            slot.intensity = given.factor;
        } else {
            slot.contents = given.factor;
        }
    }

    /// Light above 1 is the slot's intensity.
    void setEmission() {
        const auto& given = source.emission;
        const float most = std::max({given.factor.r, given.factor.g, given.factor.b});
        if (most <= 0)
            return;
        const glm::vec3 factor = given.factor / std::max(most, 1.0F);
        material->emission.intensity = std::max(most, 1.0F);
        if (!given.picture ||
            !setPicture(
                material->emission, *given.picture, pictures.color(*given.picture, factor, {})))
            material->emission.contents = colorOf(factor);
    }

    const object::Material& source;
    ObjectPictures& pictures;
    SCNMaterialPtr material;
};

[[nodiscard]] glm::mat4 uprightTransform(object::UpAxis up) {
    constexpr auto kQuarter = glm::half_pi<float>();
    switch (up) {
    case object::UpAxis::z:
        return glm::rotate(glm::mat4(1), -kQuarter, glm::vec3(1, 0, 0));
    case object::UpAxis::x:
        return glm::rotate(glm::mat4(1), kQuarter, glm::vec3(0, 0, 1));
    default:
        return glm::mat4(1);
    }
}

/// Where the root's zero is in the file. A file that is far from its own zero is moved, because
/// matrices are float.
[[nodiscard]] glm::dvec3 originOf(const object::Figures& figures) {
    constexpr double kFar = 10; // times the size
    const glm::dvec3 middle = (figures.boxMin + figures.boxMax) / 2.0;
    const double size = glm::length(figures.boxMax - figures.boxMin);
    return glm::length(middle) > kFar * size ? middle : glm::dvec3(0);
}

/// What is drawn where the file says nothing: light grey, or white for colours of vertices.
[[nodiscard]] SCNMaterialPtr unnamedMaterial(bool hasColors) {
    auto material = std::make_shared<SCNMaterial>();
    material->diffuse.contents = image::Color::white(hasColors ? 1.0F : 0.8F);
    return material;
}

/// The base colour times one of the vertices' colours, and the opacity times its alpha.
void tint(SCNMaterial& material, const glm::u8vec4& color) {
    const image::Color base = material.diffuse.colorOr(image::Color::white(1));
    const auto mixed = [](float one, std::uint8_t other) {
        return image::linearFromSRGB(one) *
               image::linearFromSRGB(static_cast<float>(other) / 255.0F);
    };
    material.diffuse.contents =
        colorOf({mixed(base.red, color.r), mixed(base.green, color.g), mixed(base.blue, color.b)});
    material.transparency *= static_cast<float>(color.a) / 255.0F;
}

/// The material of a piece. It is the piece's own if the piece is double-sided and the material is
/// not, or if all its vertices have one colour, which then is the material's.
[[nodiscard]] SCNMaterialPtr
materialFor(object::Piece& piece, const std::vector<SCNMaterialPtr>& materials) {
    SCNMaterialPtr material =
        piece.material ? materials[*piece.material] : unnamedMaterial(!piece.colors.empty());
    const auto isFirst = [&](const glm::u8vec4& color) { return color == piece.colors.front(); };
    const bool hasOneColor = !piece.colors.empty() && !material->diffuse.image() &&
                             std::ranges::all_of(piece.colors, isFirst);
    const bool turnsBack = piece.isDoubleSided && !material->isDoubleSided;
    if (!hasOneColor && !turnsBack)
        return material;
    auto own = std::make_shared<SCNMaterial>(*material);
    own->isDoubleSided = own->isDoubleSided || piece.isDoubleSided;
    if (hasOneColor) {
        tint(*own, piece.colors.front());
        piece.colors = {};
    }
    return own;
}

} // namespace

std::vector<SCNMaterialPtr> materialsOf(ObjectScene& scene, const object::Watch& watch) {
    ObjectPictures pictures(scene);
    std::vector<SCNMaterialPtr> materials;
    materials.reserve(scene.materials.size());
    for (const object::Material& material : scene.materials) {
        if (watch.stop.stop_requested())
            break;
        materials.push_back(MaterialMaker(material, pictures).make());
        if (watch.isAdvanced) {
            watch.isAdvanced(
                static_cast<double>(materials.size()) /
                static_cast<double>(scene.materials.size()));
        }
    }
    return materials;
}

SCNNodePtr nodeOf(ObjectScene scene, const std::vector<SCNMaterialPtr>& materials) {
    auto root = std::make_shared<SCNNode>();
    std::vector<SCNGeometryPtr> geometries;
    for (object::Piece& piece : scene.pieces)
        geometries.push_back(
            std::make_shared<SCNReadGeometry>(piece, materialFor(piece, materials)));
    const glm::dmat4 upright =
        glm::translate(glm::dmat4(uprightTransform(scene.upAxis)), -originOf(scene.figures));
    for (const object::Placement& placement : scene.placements) {
        const glm::dmat4 transform = upright * placement.transform;
        if (glm::determinant(transform) == 0)
            continue; // flattened to nothing
        auto node = std::make_shared<SCNNode>();
        node->name = scene.pieces[placement.piece].name;
        node->geometry = geometries[placement.piece];
        node->pivot = glm::mat4(glm::inverse(transform)); // a node has no matrix but this
        root->addChildNode(std::move(node));
    }
    return root;
}

} // namespace zelvo::scene
