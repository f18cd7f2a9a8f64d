// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Color.h"
#include "platform/image/Image.h"

#include <glm/mat4x4.hpp>

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace zelvo::image {

class LazyImage;

} // namespace zelvo::image

namespace zelvo::scene {

enum class SCNWrapMode { clamp = 1, repeat = 2, clampToBorder = 3, mirror = 4 };

/// The six faces of a cube map in the order +x, -x, +y, -y, +z, -z.
using CubeImages = std::array<image::ImagePtr, 6>;

/// One slot of a material, or a scene's background or lighting environment.
class SCNMaterialProperty {
public:
    /// Nothing, a colour, a number (grey value or scalar), a picture, one that is read when it is
    /// needed, or a cube of six.
    using Contents = std::variant<
        std::monostate,
        image::Color,
        float,
        image::ImagePtr,
        std::shared_ptr<const image::LazyImage>,
        CubeImages>;

    Contents contents;
    /// Multiplies the contents; for `normal`, 0 is flat and 1 the full map.
    float intensity = 1;
    SCNWrapMode wrapS = SCNWrapMode::clamp;
    SCNWrapMode wrapT = SCNWrapMode::clamp;
    glm::mat4 contentsTransform{1}; ///< applied to (u, v, 0, 1)

    [[nodiscard]] bool isEmpty() const { return std::holds_alternative<std::monostate>(contents); }

    /// The colour or grey value; white for a picture; `fallback` for an empty slot.
    [[nodiscard]] image::Color colorOr(const image::Color& fallback) const;
    /// Null if the slot has no picture.
    [[nodiscard]] image::ImagePtr image() const;
    /// A null picture makes the slot empty.
    void setImage(const image::ImagePtr& picture);
};

enum class SCNLightingModel { physicallyBased, constant };
enum class SCNFillMode { fill = 0, lines = 1 };
enum class SCNBlendMode { alpha = 0, add = 1, subtract = 2, multiply = 3, screen = 4, replace = 5 };
/// aOne: the alpha of `transparent` is the opacity. rgbZero: its brightness is; black is opaque.
enum class SCNTransparencyMode { aOne = 0, rgbZero = 1 };
enum class SCNShaderModifierEntryPoint { surface };

/// What a flat floor shows of the things that stand on it: their mirror image, and the dark places
/// under them. Only the floor's horizontal part shows it.
struct SCNFloorLook {
    /// Share of the light that is mirrored when seen from straight above; more at grazing angles.
    /// Rough places of the floor mirror less.
    float mirror = 0;
    float blur = 0.3f; ///< 0: sharp; 1: only soft patches; grows with the distance from the floor
    float contact = 0.6f; ///< how dark the floor is where something stands on it
    float height = 0;     ///< of the horizontal part, scene units above the node's origin
    /// The mirror image is that of a floor so much higher, scene units. So the picture still holds
    /// the images of things that hang high above the floor.
    float lift = 0;
};

/// How a surface looks. Colour slots are in sRGB; `normal`, `roughness`, `metalness`,
/// `ambientOcclusion` and `displacement` are data. An empty slot means: diffuse white, emission
/// black, roughness 0.5, metalness 0, ambientOcclusion 1, transparent opaque, multiply white,
/// specular 4 % (a physically based dielectric).
///
/// A shader modifier is GLSL code that runs in the fragment shader, after the slots are sampled and
/// before lighting. It reads and writes `_surface.diffuse`, `.emission`, `.specular` (vec4,
/// linear), `.normal` (vec3, view space), `.roughness`, `.metalness`, `.ambientOcclusion` (float)
/// and `.diffuseTexcoord` (vec2). It can sample `u_diffuseTexture`, `u_specularTexture`,
/// `u_emissionTexture` with texture2D, and read `u_time` (scene seconds). It cannot change the
/// opacity.
class SCNMaterial {
public:
    static constexpr std::size_t kSlotCount = 13;

    virtual ~SCNMaterial() = default;

    std::string name;
    SCNLightingModel lightingModelName = SCNLightingModel::physicallyBased;
    SCNFillMode fillMode = SCNFillMode::fill;
    SCNBlendMode blendMode = SCNBlendMode::alpha;
    SCNTransparencyMode transparencyMode = SCNTransparencyMode::aOne;
    bool isDoubleSided = false;
    float transparency = 1; ///< opacity of the whole material
    /// The share of a clear lacquer over everything, 0 to 1. It has highlights and reflections of its own.
    float clearCoat = 0;
    float clearCoatRelief = 0; ///< 0: the lacquer is smooth; 1: it follows the relief of `normal`

    /// The chamfers of a solid. Edges are touched and polished most.
    struct Rim {
        float relief = 1;    ///< times the intensity of `normal`
        float roughness = 1; ///< times the roughness
    };

    Rim rim;
    std::map<SCNShaderModifierEntryPoint, std::string> shaderModifiers;
    std::optional<SCNFloorLook> floor; ///< nothing: the surface is no floor

    SCNMaterialProperty diffuse;
    SCNMaterialProperty ambient;
    SCNMaterialProperty specular;
    SCNMaterialProperty emission;
    SCNMaterialProperty transparent;
    SCNMaterialProperty reflective;
    SCNMaterialProperty multiply;
    SCNMaterialProperty normal;
    SCNMaterialProperty displacement;
    SCNMaterialProperty ambientOcclusion;
    SCNMaterialProperty selfIllumination;
    SCNMaterialProperty metalness;
    SCNMaterialProperty roughness;

    /// All thirteen slots, in the order of declaration.
    [[nodiscard]] std::array<SCNMaterialProperty*, kSlotCount> allProperties();
    [[nodiscard]] std::array<const SCNMaterialProperty*, kSlotCount> allProperties() const;

    /// Gives every slot the contents transform diag(scale, scale, 1, 1).
    void setContentsScale(float scale);
};

using SCNMaterialPtr = std::shared_ptr<SCNMaterial>;

} // namespace zelvo::scene
