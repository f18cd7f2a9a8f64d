// SPDX-License-Identifier: MIT
#include "platform/render/ContactMap.h"

#include "platform/render/Hash.h"
#include "platform/render/ShadowReach.h"

#include <epoxy/gl.h>
#include <glm/gtc/matrix_transform.hpp>

#include <algorithm>
#include <array>
#include <cmath>

namespace zelvo::render {
namespace {

constexpr int kFootprintSide = 512; ///< texels
constexpr int kSoftenedSide = 256;
constexpr float kHalfWidth = 800;                  ///< scene units that the map covers
constexpr glm::vec3 kMiddle{0, 0, -150};           ///< of the covered part
constexpr float kReach = 240;                      ///< things higher above the floor do not count
constexpr float kWidest = kReach / kHalfWidth / 2; ///< radius of the softest edge, in 0 .. 1
/// scene units; lookups reach that far, and their mipmaps a little farther
constexpr float kFarthest = 1.4f * kReach;

/// Content belongs to another category than the floor. Lights and glows do not stop light.
bool isOnFloor(const VisibleNode& node, const VisibleNode& floor) {
    using scene::SCNBlendMode;
    const bool isOther = (node.categoryBitMask & floor.categoryBitMask) == 0;
    if (&node == &floor || !node.showsOnFloors || !(node.castsShadow || isOther))
        return false;
    const scene::SCNMaterial* material = node.geometry->materialFor(0);
    return material == nullptr || material->blendMode == SCNBlendMode::alpha ||
           material->blendMode == SCNBlendMode::replace;
}

/// From the world to clip space, seen from the floor upwards: depth 1 at the floor, 0 at the reach.
glm::mat4 upwards(float height) {
    glm::mat4 m(0);
    m[0][0] = 1 / kHalfWidth;
    m[2][1] = 1 / kHalfWidth;
    m[1][2] = -1 / kReach;
    m[3] = {-kMiddle.x / kHalfWidth, -kMiddle.z / kHalfWidth, 1 + height / kReach, 1};
    return m;
}

} // namespace

glm::mat4 ContactMap::toTexture(float height) {
    return clipToTexture() * upwards(height);
}

bool ContactMap::draw(
    const ShadowPass::Tools& tools,
    const Snapshot& snapshot,
    const Snapshot::Floor& floor,
    const Request& request) {
    things.clear();
    Hash hash;
    const Effort& effort = request.effort;
    hash.addBlock(floor.height);
    hash.addBlock(
        std::array{effort.contactSearchLookups, effort.contactLookups, effort.closeContactLookups});
    reach = {};
    shadows = {};
    for (const VisibleNode& node : snapshot.nodes()) {
        if (!isOnFloor(node, snapshot.nodes()[floor.item.node]))
            continue;
        const geometry::Box box = worldBox(node);
        if (box.min.y > floor.height + kReach || box.max.y < floor.height)
            continue;
        things.push_back(&node);
        const float spread = std::max(box.min.y - floor.height, 0.0f) + 30;
        reach.include({box.min.x - spread, floor.height, box.min.z - spread});
        reach.include({box.max.x + spread, floor.height, box.max.z + spread});
        shadows.include({box.min.x - kFarthest, floor.height, box.min.z - kFarthest});
        shadows.include({box.max.x + kFarthest, floor.height, box.max.z + kFarthest});
        hash.add(node.geometry->revision());
        hash.addBlock(node.world);
        hash.addBlock(node.opacity);
    }
    const bool isNew = footprints.resize({kFootprintSide, kFootprintSide}, tools.state);
    softened.resize({kSoftenedSide, kSoftenedSide}, tools.state);
    if (things.empty()) {
        content = 0; // what comes next must not find these
        return false;
    }
    const bool mayStay = request.refresh == Refresh::later && content != 0;
    if (!isNew && (mayStay || content == hash.result()))
        return true;
    content = hash.result();
    footprints.bind(tools.state);
    ShadowPass::beginMap(tools, upwards(floor.height));
    for (const VisibleNode* node : things)
        ShadowPass::drawCaster(tools, *node);
    glGenerateTextureMipmap(footprints.color());
    PassBlock block;
    block.passNumbers[0] = {
        kWidest, effort.contactSearchLookups, effort.contactLookups, effort.closeContactLookups};
    softened.bind(tools.state);
    tools.state.clearColor({});
    const PixelRect dark = darkTexels(floor.height);
    if (dark.isEmpty())
        return true;
    tools.state.setScissor(dark);
    soften.run(
        {tools.state, tools.uniforms},
        softened,
        {{kPictureUnit, footprints.color(), tools.textures.shadowSampler()}},
        block);
    tools.state.setScissor(std::nullopt);
    return true;
}

PixelRect ContactMap::darkTexels(float height) const {
    const glm::mat4 toTexel = toTexture(height);
    const glm::vec2 low(toTexel * glm::vec4(shadows.min, 1));
    const glm::vec2 high(toTexel * glm::vec4(shadows.max, 1));
    const auto texel = [](float share) {
        return static_cast<float>(kSoftenedSide) * std::clamp(share, 0.0F, 1.0F);
    };
    return {
        static_cast<int>(std::floor(texel(std::min(low.x, high.x)))),
        static_cast<int>(std::floor(texel(std::min(low.y, high.y)))),
        static_cast<int>(std::ceil(texel(std::max(low.x, high.x)))),
        static_cast<int>(std::ceil(texel(std::max(low.y, high.y))))};
}

PixelRect ContactMap::seenIn(const CameraView& camera, Size picture) const {
    return boundsOnScreen(reach, camera, picture);
}

} // namespace zelvo::render
