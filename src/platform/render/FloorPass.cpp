// SPDX-License-Identifier: MIT
#include "platform/render/FloorPass.h"

#include "platform/foundation/Check.h"
#include "platform/render/Effort.h"
#include "platform/render/ShaderProgram.h"
#include "platform/render/ShadowReach.h"
#include "platform/scene/MaterialOpacity.h"

#include <string>
#include <string_view>
#include <vector>

namespace zelvo::render {
namespace {

ProgramHandle build(std::string_view fragmentFile, const std::vector<std::string>& defines) {
    auto built = buildProgram({"surface.vert", fragmentFile, defines});
    CHECK(built.has_value(), "{}", built.error().message);
    return std::move(*built);
}

/// Where the floor ends, seen from above: left, back, right, front.
glm::vec4 endsOf(const VisibleNode& node) {
    const geometry::Box box = worldBox(node);
    return {box.min.x, box.min.z, box.max.x, box.max.z};
}

} // namespace

void FloorPass::prepare(const Tools& tools, const Frame& frame) {
    const Snapshot::Floor& floor = *frame.snapshot.floor();
    const scene::SCNFloorLook& look = *floor.item.material->floor;
    // In motion the two pictures are drawn by turns. Both are soft: a frame late is not seen.
    turn = frame.detail == Detail::moving ? turn + 1 : 0;
    hasContact =
        look.contact > 0 &&
        contact.draw(
            {tools.state, tools.meshes, tools.shaders, frame.items.uniforms, tools.textures},
            frame.snapshot,
            floor,
            {effortOf(frame.detail), turn % 2 == 0 ? Refresh::now : Refresh::later});
    if (look.mirror > 0)
        drawMirror(tools, frame);
}

void FloorPass::drawMirror(const Tools& tools, const Frame& frame) {
    const Snapshot::Floor& floor = *frame.snapshot.floor();
    const scene::SCNFloorLook& look = *floor.item.material->floor;
    const Effort& effort = effortOf(frame.detail);
    const Size size = frame.target.size().scaled(effort.mirrorScale);
    const VisibleNode& node = frame.snapshot.nodes()[floor.item.node];
    mirror.draw(
        {tools.state, tools.painter, tools.particles, tools.textures},
        {frame.scene,
         frame.snapshot,
         look,
         floor.height + look.lift,
         size,
         boundsOnScreen(node, frame.snapshot.camera(), size),
         frame.block,
         frame.items,
         effort.mirrorLookups,
         turn == 0 || turn % 2 == 1 ? Refresh::now : Refresh::later});
}

PixelRect FloorPass::darkPart(const CameraView& camera, Size picture) const {
    return hasContact ? contact.seenIn(camera, picture) : PixelRect{};
}

PixelRect FloorPass::seenPart(const Frame& frame) const {
    const Snapshot::Floor& floor = *frame.snapshot.floor();
    const CameraView& camera = frame.snapshot.camera();
    const Size size = frame.target.size();
    const bool hasMirror = floor.item.material->floor->mirror > 0;
    const PixelRect part =
        (hasMirror ? mirror.seenIn(size) : PixelRect{}).united(darkPart(camera, size));
    return part.intersected(boundsOnScreen(frame.snapshot.nodes()[floor.item.node], camera, size));
}

void FloorPass::drawOn(const Tools& tools, const Frame& frame) {
    const Snapshot::Floor& floor = *frame.snapshot.floor();
    const scene::SCNFloorLook& look = *floor.item.material->floor;
    const Size size = frame.target.size();
    const PixelRect part = seenPart(frame);
    if (part.isEmpty())
        return;
    const bool hasRoughness = floor.item.material->roughness.image() != nullptr;
    tools.state.useProgram(program(hasRoughness, floor.isLeftOut));
    PassBlock block;
    block.passDirections = ContactMap::toTexture(floor.height);
    block.passFrame = {0, size.width, size.height, 0};
    block.passNumbers[0] = {
        look.mirror, hasContact ? look.contact : 0.0f, floor.height, floor.opacity};
    block.passNumbers[1] = endsOf(frame.snapshot.nodes()[floor.item.node]);
    frame.items.uniforms.bind(tools.state, kPassBinding, block);
    const std::uint32_t smooth = tools.textures.smoothSampler();
    tools.state.bindTexture(
        kPictureUnit, look.mirror > 0 ? mirror.texture() : tools.textures.white(), smooth);
    tools.state.bindTexture(
        kDepthUnit, hasContact ? contact.texture() : tools.textures.white(), smooth);
    tools.state.setScissor(part);
    const bool isSeen = !floor.isLeftOut && scene::constantOpacity(*floor.item.material) > 0;
    frame.snapshot.forEachPart(floor, [&](const DrawItem& item) {
        tools.painter.drawOver(
            frame.items, item, Blend::over, isSeen ? Colors::ofScene : Colors::shown);
    });
    tools.state.setScissor(std::nullopt);
}

void FloorPass::catchShadows(const Tools& tools, const Frame& frame, const PixelRect& part) {
    const Snapshot::Floor& floor = *frame.snapshot.floor();
    if (!catching)
        catching = build("floor_shadows.frag", {"LIT", "LEFT_OUT"});
    tools.state.useProgram(catching.name());
    PassBlock block;
    block.passNumbers[0] = {0, 0, floor.height, floor.opacity};
    block.passNumbers[1] = endsOf(frame.snapshot.nodes()[floor.item.node]);
    frame.items.uniforms.bind(tools.state, kPassBinding, block);
    tools.state.setScissor(part);
    frame.snapshot.forEachPart(floor, [&](const DrawItem& item) {
        tools.painter.drawOver(frame.items, item, Blend::multiply, Colors::shown);
    });
    tools.state.setScissor(std::nullopt);
}

std::uint32_t FloorPass::program(bool hasRoughness, bool isLeftOut) {
    ProgramHandle& known = programs.at((hasRoughness ? 1U : 0U) + (isLeftOut ? 2U : 0U));
    if (known)
        return known.name();
    std::vector<std::string> defines{"LIT"};
    if (hasRoughness)
        defines.insert(defines.end(), {"HAS_TEXCOORD", "HAS_ROUGHNESS_PICTURE"});
    if (isLeftOut)
        defines.emplace_back("LEFT_OUT");
    known = build("floor.frag", defines);
    return known.name();
}

} // namespace zelvo::render
