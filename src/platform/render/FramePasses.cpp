// SPDX-License-Identifier: MIT
#include "platform/render/FramePasses.h"

#include "platform/render/DepthOfField.h"

#include <epoxy/gl.h>

#include <array>
#include <string_view>

namespace zelvo::render {
namespace {

/// What one pass makes and another needs. A pass that tests depth reads it.
enum Part : std::uint32_t {
    kNothing = 0,
    kShadowMaps = 1,
    kLight = 2,
    kDepth = 4,
    kColor = 8,
    kMirror = 16,
    kGlow = 32,
    kShadeImage = 64,
    kLines = 128
};

/// Drawings of one frame are spread over the pixel, so that their mean has smooth edges already.
bool hasLines(const FrameInput& input) {
    return input.drawings == 1 && input.samples == 4 && input.detail == Detail::full;
}

} // namespace

struct FramePasses::Frame {
    const FrameInput& input;
    FramePictures pictures;
    SceneDrawer::Frame scene;

    [[nodiscard]] FullscreenPass::Tools tools(GraphicsState& state) const {
        return {state, input.uniforms};
    }
};

struct FramePasses::Pass {
    std::string_view name; ///< shown by graphics debuggers
    std::uint32_t reads;
    std::uint32_t writes;
    /// false: the pass would change nothing and is skipped
    bool (*isSeen)(const FramePasses&, const Frame&);
    void (*run)(FramePasses&, const Frame&);
};

/// In the order in which they run. A struct, as its functions reach the private members.
struct FramePasses::Table {
    using F = const Frame&;
    using All = FramePasses&;
    using Const = const FramePasses&;
    // clang-format off
    static constexpr auto kAll = std::to_array<Pass>({
        {"shadow maps", kNothing, kShadowMaps,
         [](Const all, F) { return all.drawer.hasShadows(); },
         [](All all, F frame) { all.drawer.drawShadows(frame.scene); }},

        {"what the floor shows", kNothing, kMirror,
         [](Const all, F) { return all.drawer.hasFloor(); },
         [](All all, F frame) { all.drawer.prepareFloor(frame.scene); }},

        {"background and what stands still", kShadowMaps, kLight | kDepth,
         [](Const, F) { return true; },
         [](All all, F frame) { all.drawer.drawStill(frame.scene); }},

        {"smaller picture of shadows", kShadowMaps, kShadeImage,
         [](Const all, F) { return all.drawer.hasShade(); },
         [](All all, F frame) { all.drawer.drawShade(frame.scene); }},

        {"what moves", kShadowMaps | kShadeImage | kDepth, kLight | kDepth,
         [](Const, F) { return true; },
         [](All all, F frame) { all.drawer.drawMoving(frame.scene); }},

        {"floor", kMirror | kShadeImage | kDepth, kLight,
         [](Const all, F) { return all.drawer.hasFloor(); },
         [](All all, F frame) { all.drawer.drawOnFloor(frame.scene); }},

        {"translucent items", kShadowMaps | kDepth, kLight | kDepth,
         [](Const all, F) { return all.drawer.hasTranslucent(); },
         [](All all, F frame) { all.drawer.drawTranslucent(frame.scene); }},

        {"lines of edges", kDepth, kLines,
         [](Const, F frame) { return hasLines(frame.input); },
         [](All all, F frame) { all.drawer.drawEdgeLines(frame.scene); }},

        {"particles", kDepth, kLight,
         [](Const all, F) { return all.drawer.hasParticles(); },
         [](All all, F frame) { all.drawer.drawParticles(frame.scene); }},

        {"bloom", kLight, kGlow,
         [](Const all, F frame) { return all.glows(frame); },
         [](All all, F frame) {
             all.glow = all.bloom.draw(all.light, frame.tools(all.graphicsState()));
         }},

        {"display", kLight | kGlow, kColor,
         [](Const, F) { return true; },
         [](All all, F frame) {
             all.display.draw(
                 {all.light, all.drawer.hasToneMap(), all.glow},
                 frame.pictures.picture,
                 frame.tools(all.graphicsState()));
         }},

        {"edges", kLight | kGlow | kLines, kColor,
         [](Const all, F frame) {
             return hasLines(frame.input) && !all.drawer.edgeLines().isEmpty();
         },
         [](All all, F frame) {
             all.display.smoothEdges(
                 {all.light, all.drawer.hasToneMap(), all.glow},
                 all.drawer.edgeLines(),
                 frame.pictures.picture,
                 frame.tools(all.graphicsState()));
         }},

        {"depth of field", kColor | kDepth, kColor,
         [](Const all, F frame) { return all.isOutOfFocus(frame); },
         [](All all, F frame) {
             all.depthOfField.draw(
                 *all.drawer.sceneCamera(),
                 all.light,
                 frame.pictures,
                 frame.tools(all.graphicsState()));
         }},

        {"techniques", kColor, kColor,
         [](Const, F frame) { return frame.input.technique != nullptr; },
         [](All all, F frame) {
             all.techniques.draw(
                 frame.input.technique, frame.pictures, frame.input.scene.time(),
                 frame.tools(all.graphicsState()));
         }},
    });
    // clang-format on
};

std::span<const FramePasses::Pass> FramePasses::passes() {
    static_assert(
        [] {
            std::uint32_t written = kNothing;
            for (const Pass& pass : Table::kAll) {
                if ((pass.reads & ~written) != 0)
                    return false;
                written |= pass.writes;
            }
            return true;
        }(),
        "a pass reads what no pass before it writes");
    return Table::kAll;
}

FramePasses::FramePasses(const DeviceInfo& device)
    : drawer(device) {}

void FramePasses::draw(const FrameInput& input, RenderTarget& picture) {
    GraphicsState& state = graphicsState();
    picture.resize(input.drawnSize, state);
    light.resize(input.drawnSize, state, input.samples);
    glow = 0;
    input.uniforms.reset();
    const Frame frame{
        input,
        {picture, spare},
        drawer.begin(
            input.scene,
            {input.pointOfView, input.moment, input.leftOut},
            {light, input.detail, input.backdrop},
            input.uniforms)};
    for (const Pass& pass : passes()) {
        if (!pass.isSeen(*this, frame))
            continue;
        if ((pass.reads & pass.writes & kColor) != 0)
            spare.resize(input.drawnSize, state);
        glPushDebugGroup(
            GL_DEBUG_SOURCE_APPLICATION,
            0,
            static_cast<GLsizei>(pass.name.size()),
            pass.name.data());
        pass.run(*this, frame);
        glPopDebugGroup();
    }
    drawer.end();
}

bool FramePasses::glows(const Frame& frame) const {
    return drawer.hasToneMap() && drawer.hasSceneLight(frame.input.scene);
}

bool FramePasses::isOutOfFocus(const Frame& frame) const {
    const scene::SCNCamera* camera = drawer.sceneCamera();
    return camera != nullptr && needsDepthOfField(*camera, frame.input.shownSize);
}

} // namespace zelvo::render
