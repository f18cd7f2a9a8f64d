// SPDX-License-Identifier: MIT
#include "platform/render/SCNView.h"

#include "platform/foundation/Check.h"
#include "platform/render/Fence.h"
#include "platform/render/FramePasses.h"

#include <epoxy/gl.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace zelvo::render {
namespace {

constexpr int kMinVersion = 45;
constexpr double kMaxOversampling = 2;
constexpr std::size_t kFrames = 3; ///< frames in flight: the GPU may still read their uniforms

/// The uniforms of a frame, and a fence that tells when the GPU has finished with them.
struct FrameMemory {
    explicit FrameMemory(int alignment)
        : uniforms(alignment) {}

    UniformArena uniforms;
    Fence done;
};

void copy(const RenderTarget& picture, const ViewTarget& target) {
    const auto [width, height] = picture.size();
    const bool isSame = picture.size() == target.size;
    const bool isTopFirst = target.rows == RowOrder::topFirst;
    glBlitNamedFramebuffer(
        picture.framebuffer(),
        target.framebuffer,
        0,
        0,
        width,
        height,
        0,
        isTopFirst ? 0 : target.size.height,
        target.size.width,
        isTopFirst ? target.size.height : 0,
        GL_COLOR_BUFFER_BIT,
        isSame ? GL_NEAREST : GL_LINEAR);
}

} // namespace

struct SCNView::State {
    State()
        : device(readDeviceInfo())
        , passes(device)
        , frames{
              FrameMemory(device.uniformAlignment),
              FrameMemory(device.uniformAlignment),
              FrameMemory(device.uniformAlignment)} {
        passes.graphicsState().handBack();
    }

    DeviceInfo device;
    FramePasses passes;
    RenderTarget picture{
        TargetFormat::rgba8}; ///< the drawn frame, before it is copied to the target
    std::array<FrameMemory, kFrames> frames;
    std::size_t drawn = 0;
};

foundation::Result<std::unique_ptr<SCNView>> SCNView::make() {
    if (!epoxy_is_desktop_gl() || epoxy_gl_version() < kMinVersion) {
        return foundation::fail(
            foundation::Cause::unavailable,
            fmt::format(
                "the window's graphics have no OpenGL 4.5 ({}); install a driver that has, such as "
                "Mesa",
                readDeviceInfo().name));
    }
    std::unique_ptr<SCNView> view(new SCNView());
    view->state = std::make_unique<State>();
    return view;
}

SCNView::SCNView() = default;

SCNView::~SCNView() {
    if (!state)
        return;
    for (FrameMemory& frame : state->frames)
        frame.done.await();
}

void SCNView::draw(const ViewTarget& target) {
    CHECK(scene() != nullptr, "no scene is attached to the view");
    CHECK(
        target.size.width > 0 && target.size.height > 0,
        "a view of {} x {}",
        target.size.width,
        target.size.height);
    const double oversampling = std::clamp(quality.oversampling, 1.0, kMaxOversampling);
    FrameMemory& frame = state->frames.at(state->drawn++ % kFrames);
    frame.done.await();
    GraphicsState& graphics = state->passes.graphicsState();
    graphics.forget();
    state->passes.draw(
        {*scene(),
         pointOfView.get(),
         technique,
         target.size.scaled(oversampling),
         quality.samples,
         target.size,
         frame.uniforms,
         {},
         0,
         state->device.isSoftware ? quality.detail : Detail::full},
        state->picture);
    graphics.handBack();
    copy(state->picture, target);
    glBindFramebuffer(GL_FRAMEBUFFER, target.framebuffer);
    glViewport(0, 0, target.size.width, target.size.height);
    frame.done.set();
}

std::optional<std::uint64_t> SCNView::pictureKey(double aspect) {
    CHECK(scene() != nullptr, "no scene is attached to the view");
    if (technique)
        return std::nullopt;
    return state->passes.pictureKey(*scene(), pointOfView.get(), static_cast<float>(aspect));
}

std::string SCNView::deviceName() const {
    return state->device.name;
}

} // namespace zelvo::render
