// SPDX-License-Identifier: MIT
#include "platform/scene/ObjectNodes.h"

#include "platform/scene/ObjectColors.h"
#include "platform/scene/ObjectPictures.h"

#include <glm/gtc/constants.hpp>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/matrix.hpp>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace zelvo::scene {

using object::ObjectScene;
using object::PictureUse;

namespace {

/// A mesh that is there from the start.
class SCNReadGeometry final : public SCNGeometry {
public:
    explicit SCNReadGeometry(geometry::Mesh given)
        : read(std::move(given)) {}

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
    constexpr float kQuarter = glm::half_pi<float>();
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

[[nodiscard]] bool hasPictures(const SCNMaterial& material) {
    return std::ranges::any_of(material.allProperties(), [](const SCNMaterialProperty* slot) {
        return slot->image() != nullptr;
    });
}

/// What is drawn where the file says nothing.
[[nodiscard]] SCNMaterialPtr greyMaterial() {
    auto material = std::make_shared<SCNMaterial>();
    material->diffuse.contents = image::Color::white(0.8F);
    return material;
}

/// The material of a piece. It is the piece's own if the piece is double-sided and the material is
/// not, or if it has colours. Colours need the texture coordinates, so pictures go before them.
[[nodiscard]] SCNMaterialPtr
materialFor(object::Piece& piece, const std::vector<SCNMaterialPtr>& materials) {
    const SCNMaterialPtr material = piece.material ? materials[*piece.material] : greyMaterial();
    const bool showsColors = !piece.colors.empty() && !hasPictures(*material);
    const bool turnsBack = piece.isDoubleSided && !material->isDoubleSided;
    if (!showsColors && !turnsBack)
        return material;
    auto own = std::make_shared<SCNMaterial>(*material);
    own->isDoubleSided = own->isDoubleSided || piece.isDoubleSided;
    if (showsColors) {
        const image::Color base =
            piece.material ? own->diffuse.colorOr(image::Color::white(1)) : image::Color::white(1);
        own->diffuse.setImage(takeColors(
            piece,
            {image::linearFromSRGB(base.red),
             image::linearFromSRGB(base.green),
             image::linearFromSRGB(base.blue)}));
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
    for (object::Piece& piece : scene.pieces) {
        SCNMaterialPtr material = materialFor(piece, materials); // may change the mesh
        auto geometry = std::make_shared<SCNReadGeometry>(std::move(piece.mesh));
        geometry->materials = {std::move(material)};
        geometries.push_back(std::move(geometry));
    }
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
