// SPDX-License-Identifier: MIT
#include "platform/render/SCNView.h"

#include "platform/foundation/Check.h"
#include "platform/render/DepthOfField.h"
#include "platform/render/DepthOfFieldPass.h"
#include "platform/render/Fence.h"
#include "platform/render/FrameDrawer.h"
#include "platform/render/TechniquePasses.h"

#include <epoxy/gl.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zelvo::render {
namespace {

constexpr int kLeastVersion = 45;
constexpr double kMostOversampling = 2;
constexpr std::size_t kFrames = 3; ///< whose uniforms may still be read

/// The uniforms of a frame and when they are done with.
struct FrameMemory {
    explicit FrameMemory(int alignment)
        : uniforms(alignment) {}

    UniformArena uniforms;
    Fence done;
};

TextureHandle makeTexture(GLenum format, Size size) {
    GLuint name = 0;
    glCreateTextures(GL_TEXTURE_2D, 1, &name);
    glTextureStorage2D(name, 1, format, size.width, size.height);
    return TextureHandle(name);
}

/// What the view draws into before it comes to the target.
struct Canvas {
    TextureHandle color;
    TextureHandle depth;
    FramebufferHandle framebuffer;
    Size size;

    void ensureSize(Size wanted) {
        if (size == wanted)
            return;
        color = makeTexture(GL_RGBA8, wanted);
        depth = makeTexture(GL_DEPTH_COMPONENT32F, wanted);
        GLuint name = 0;
        glCreateFramebuffers(1, &name);
        framebuffer = FramebufferHandle(name);
        glNamedFramebufferTexture(name, GL_COLOR_ATTACHMENT0, color.name(), 0);
        glNamedFramebufferTexture(name, GL_DEPTH_ATTACHMENT, depth.name(), 0);
        size = wanted;
    }
};

Size scaled(Size size, double factor) {
    const auto side = [factor](int length) {
        return static_cast<int>(std::lround(length * factor));
    };
    return {side(size.width), side(size.height)};
}

void copy(const Canvas& canvas, const ViewTarget& target) {
    const bool isSame = canvas.size == target.size;
    const bool isTopFirst = target.rows == RowOrder::topFirst;
    glBlitNamedFramebuffer(
        canvas.framebuffer.name(),
        target.framebuffer,
        0,
        0,
        canvas.size.width,
        canvas.size.height,
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
        , drawer(device)
        , frames{
              FrameMemory(device.uniformAlignment),
              FrameMemory(device.uniformAlignment),
              FrameMemory(device.uniformAlignment)} {
        drawer.graphicsState().handBack();
    }

    DeviceInfo device;
    FrameDrawer drawer;
    DepthOfFieldPass depthOfField;
    TechniquePasses techniques;
    Canvas canvas;
    std::array<FrameMemory, kFrames> frames;
    std::size_t drawn = 0;
};

foundation::Result<std::unique_ptr<SCNView>> SCNView::make() {
    if (!epoxy_is_desktop_gl() || epoxy_gl_version() < kLeastVersion) {
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

void SCNView::drawAtTime(double time, const ViewTarget& target) {
    CHECK(scene() != nullptr, "no scene is attached to the view");
    update(time);
    const scene::SCNScenePtr shown = scene();
    if (delegate != nullptr)
        delegate->rendererWillRenderScene(*this, *shown, time);
    draw(target);
    if (delegate != nullptr)
        delegate->rendererDidRenderScene(*this, *shown, time);
}

void SCNView::draw(const ViewTarget& target) {
    CHECK(scene() != nullptr, "no scene is attached to the view");
    CHECK(
        target.size.width > 0 && target.size.height > 0,
        "a view of {} x {}",
        target.size.width,
        target.size.height);
    const double oversampling = std::clamp(quality.oversampling, 1.0, kMostOversampling);
    FrameMemory& frame = state->frames.at(state->drawn++ % kFrames);
    frame.done.await();
    state->drawer.forgetState();
    state->canvas.ensureSize(scaled(target.size, oversampling));
    state->drawer.draw(
        *scene(),
        pointOfView.get(),
        {state->canvas.framebuffer.name(), state->canvas.size},
        frame.uniforms);
    const scene::SCNCamera* camera = state->drawer.sceneCamera();
    if (camera != nullptr && needsDepthOfField(*camera, target.size.height)) {
        state->depthOfField.draw(
            *camera,
            {state->canvas.color.name(),
             state->canvas.depth.name(),
             state->canvas.framebuffer.name(),
             state->canvas.size},
            state->drawer.graphicsState(),
            frame.uniforms);
    }
    if (technique) {
        state->techniques.draw(
            *technique,
            {state->canvas.color.name(), state->canvas.framebuffer.name(), state->canvas.size},
            scene()->time(),
            state->drawer.graphicsState());
    }
    GraphicsState& graphics = state->drawer.graphicsState();
    graphics.handBack();
    copy(state->canvas, target);
    glBindFramebuffer(GL_FRAMEBUFFER, target.framebuffer);
    glViewport(0, 0, target.size.width, target.size.height);
    frame.done.set();
}

std::optional<std::uint64_t> SCNView::pictureKey(double aspect) {
    CHECK(scene() != nullptr, "no scene is attached to the view");
    if (technique)
        return std::nullopt;
    return state->drawer.pictureKey(*scene(), pointOfView.get(), static_cast<float>(aspect));
}

std::string SCNView::deviceName() const {
    return state->device.name;
}

} // namespace zelvo::render
