// SPDX-License-Identifier: MIT
#include "platform/render/MirrorImage.h"

#include "platform/render/ShadowReach.h"

#include <epoxy/gl.h>
#include <glm/matrix.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::render {
namespace {

/// Radius of the blur of `blur` = 1 for things far above the floor, as a share of the picture's
/// height.
constexpr float kWidestBlur = 0.16f;
constexpr double kHeightsScale = 0.5; ///< size of the picture of heights over that of the mirror

} // namespace

void MirrorImage::draw(const Tools& tools, const Request& request) {
    spread = kWidestBlur * request.look.blur;
    snapshot.takeMirrored(request.scene, request.snapshot, request.height);
    if (seenIn(request.size).intersected(request.part).isEmpty()) {
        drawnFrom.reset();
        return;
    }
    if (mayStay(request))
        return;
    drawnFrom = snapshot.camera().viewProjection;
    sharp.resize(request.size, tools.state);
    sharp.bind(tools.state);
    tools.state.clear();
    FrameBlock block = request.block;
    block.viewProjection = snapshot.camera().viewProjection;
    block.view = snapshot.camera().view;
    block.cameraPosition = glm::vec4(snapshot.camera().position, 1);
    request.items.uniforms.bind(tools.state, kFrameBinding, block);
    ItemPainter::Frame frame{
        snapshot, request.items.views, request.items.uniforms, request.items.features};
    frame.isMirrored = true;
    tools.state.setScissor(request.part);
    drawItems(tools, frame);
    tools.particles.draw(
        {tools.state, tools.textures},
        snapshot,
        {nullptr, ParticleLight(request.scene, snapshot.lights())});
    tools.state.setScissor(std::nullopt);
    blur(tools, request);
}

/// With another camera it would be at another place on screen.
bool MirrorImage::mayStay(const Request& request) const {
    return request.refresh == Refresh::later && blurred.size() == request.size &&
           drawnFrom == snapshot.camera().viewProjection;
}

void MirrorImage::drawItems(const Tools& tools, const ItemPainter::Frame& frame) {
    const auto drawAll = [&](std::span<const DrawItem> items) {
        for (const DrawItem& item : items) {
            if (item.material->floor)
                continue;
            const ItemPainter::Lights lights =
                tools.painter.lightsFor(frame, item, ItemPainter::Shadows::none);
            tools.painter.draw(frame, item, lights, DepthTest::nearer);
        }
    };
    drawAll(snapshot.opaque());
    drawAll(snapshot.translucent());
}

void MirrorImage::blur(const Tools& tools, const Request& request) {
    const CameraView& camera = snapshot.camera();
    const FullscreenPass::Tools passTools{tools.state, request.items.uniforms};
    PassBlock block;
    block.passDirections = glm::inverse(camera.viewProjection);
    const float eyeHeight = std::max(request.height - camera.position.y, 1.0f);
    block.passNumbers[0] = {
        request.height, spread, eyeHeight, static_cast<float>(request.blurLookups)};
    heights.resize(request.size.scaled(kHeightsScale), tools.state);
    measure.run(
        passTools, heights, {{kPictureUnit, sharp.color()}, {kDepthUnit, sharp.depth()}}, block);
    glGenerateTextureMipmap(heights.color());
    glGenerateTextureMipmap(sharp.color());
    blurred.resize(request.size, tools.state);
    const std::uint32_t sampler = tools.textures.shadowSampler();
    tools.state.setScissor(request.part);
    soften.run(
        passTools,
        blurred,
        {{kPictureUnit, sharp.color(), sampler}, {kDepthUnit, heights.color(), sampler}},
        block);
    tools.state.setScissor(std::nullopt);
}

PixelRect MirrorImage::seenIn(Size picture) const {
    PixelRect seen;
    const auto addAll = [&](std::span<const DrawItem> items) {
        for (const DrawItem& item : items) {
            if (!item.material->floor)
                seen = seen.united(
                    boundsOnScreen(snapshot.nodes()[item.node], snapshot.camera(), picture));
        }
    };
    addAll(snapshot.opaque());
    addAll(snapshot.translucent());
    if (!snapshot.emitters().empty())
        return PixelRect::whole(picture);
    if (seen.isEmpty())
        return seen;
    const int margin = static_cast<int>(std::ceil(spread * static_cast<float>(picture.height))) + 1;
    seen = {seen.left - margin, seen.top - margin, seen.right + margin, seen.bottom + margin};
    return seen.intersected(PixelRect::whole(picture));
}

} // namespace zelvo::render
