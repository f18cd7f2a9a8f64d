// SPDX-License-Identifier: MIT
#pragma once

#include <glm/mat4x4.hpp>
#include <glm/vec4.hpp>

#include <array>
#include <string>

namespace zelvo::render {

// Uniform blocks shared by C++ and the shaders. Each is written once, as a list of fields; the C++
// struct and the GLSL text are both made from it. Only vec4 and mat4 are used, because glm and
// std140 lay them out in the same way.

inline constexpr int kMaxLights = 8;  ///< per frame
inline constexpr int kMaxShadows = 4; ///< per frame

/// Uniform block bindings.
enum Binding : std::uint32_t {
    kFrameBinding = 0,
    kLightBinding = 1,
    kItemBinding = 2,
    kSlotBinding = 3,
    kPassBinding = 4
};

/// Texture units. The first eleven are material slots.
enum Unit : std::uint32_t {
    kDiffuseUnit = 0,
    kSpecularUnit,
    kEmissionUnit,
    kTransparentUnit,
    kReflectiveUnit,
    kMultiplyUnit,
    kNormalUnit,
    kAmbientOcclusionUnit,
    kSelfIlluminationUnit,
    kMetalnessUnit,
    kRoughnessUnit,
    kSlotUnitCount,
    kShadowUnit = 12, ///< and the next three
    kProbeUnit = 16,
    kPictureUnit = 17, ///< the input of a full-screen pass
    kDepthUnit = 18,
    kGlowUnit = 19,  ///< what BloomPass has made
    kShadeUnit = 20, ///< the smaller picture of shadows
    kLineUnit = 21,  ///< see EdgeLines
    kSecondLineUnit = 22,
};

// clang-format off
#define ZELVO_FRAME_BLOCK(ONE, LIST)                                                                      \
    ONE(mat4, viewProjection)                                                                             \
    ONE(mat4, view)                                                                                       \
    ONE(vec4, cameraPosition)   /* xyz in the world */                                                    \
    ONE(vec4, frame)            /* x scene seconds, y exposure factor, z environment's intensity, w samples */ \
    ONE(vec4, effort)           /* lookups of a shadow: x to search casters, y for its edge; zw see shade_around.glsl */ \
    LIST(vec4, irradiance, 9)   /* rgb, see image::LightProbe */

#define ZELVO_LIGHT_BLOCK(ONE, LIST)                                                                      \
    ONE(vec4, ambient)                /* rgb */                                                           \
    LIST(vec4, lightPosition, 8)      /* xyz in the world; directional: unit vector to the light */       \
    LIST(vec4, lightAxis, 8)          /* xyz unit direction of a spot; w scale of its cone */             \
    LIST(vec4, lightColor, 8)         /* rgb, nominal is 1; w offset of the cone */                       \
    LIST(vec4, lightShadow, 8)        /* see shadows.glsl */                                              \
    LIST(vec4, shadowBounds, 8)       /* of all casters in the map: left, top, right, bottom, 0 to 1 */   \
    LIST(mat4, shadowMatrix, 8)       /* world to shadow map, 0 to 1 */

#define ZELVO_ITEM_BLOCK(ONE, LIST)                                                                       \
    ONE(mat4, world)                                                                                      \
    ONE(mat4, normalMatrix)                                                                               \
    ONE(mat4, uvTransform)                                                                                \
    ONE(vec4, diffuse)          /* rgb linear, a opacity */                                               \
    ONE(vec4, emission)         /* rgb linear, w intensity of the normal map */                           \
    ONE(vec4, specular)         /* rgb, 0.5 is 4 % at normal incidence; w intensity of the reflection */  \
    ONE(vec4, multiply)         /* rgb linear, w clear coat */                                            \
    ONE(vec4, selfIllumination) /* rgb linear, w relief of the clear coat */                              \
    ONE(vec4, factors)          /* roughness, metalness, ambient occlusion, transparency */

#define ZELVO_SLOT_BLOCK(ONE, LIST)                                                                       \
    LIST(mat4, slotTransform, 11)

#define ZELVO_PASS_BLOCK(ONE, LIST)                                                                       \
    ONE(mat4, passDirections)   /* clip space to directions in the world */                               \
    ONE(vec4, passFrame)        /* x scene seconds; yz size of the target, pixels */                      \
    LIST(vec4, passNumbers, 2)  /* see each pass's shader */
// clang-format on

// NOLINTBEGIN(bugprone-macro-parentheses): types and names bear no parentheses
#define ZELVO_ONE(type, name) glm::type name{};
#define ZELVO_LIST(type, name, count) std::array<glm::type, count> name{};

// NOLINTEND(bugprone-macro-parentheses)

struct FrameBlock {
    ZELVO_FRAME_BLOCK(ZELVO_ONE, ZELVO_LIST)
};

struct LightBlock {
    ZELVO_LIGHT_BLOCK(ZELVO_ONE, ZELVO_LIST)
};

struct ItemBlock {
    ZELVO_ITEM_BLOCK(ZELVO_ONE, ZELVO_LIST)
};

/// Used only by materials whose slots have different contents transforms.
struct SlotBlock {
    ZELVO_SLOT_BLOCK(ZELVO_ONE, ZELVO_LIST)
};

/// For full-screen passes.
struct PassBlock {
    ZELVO_PASS_BLOCK(ZELVO_ONE, ZELVO_LIST)
};

#undef ZELVO_ONE
#undef ZELVO_LIST

static_assert(sizeof(LightBlock::lightColor) == sizeof(glm::vec4) * kMaxLights);
static_assert(sizeof(SlotBlock::slotTransform) == sizeof(glm::mat4) * kSlotUnitCount);

/// The GLSL text of all blocks and constants above. It goes before every shader.
[[nodiscard]] const std::string& sharedDeclarations();

} // namespace zelvo::render
