// SPDX-License-Identifier: MIT
#include "platform/render/SCNRenderer.h"

#include "platform/foundation/Check.h"
#include "platform/render/Context.h"
#include "platform/render/Fence.h"
#include "platform/render/FrameDelivery.h"
#include "platform/render/FramePasses.h"

#include <epoxy/gl.h>

#include <array>

namespace zelvo::render {
namespace {

constexpr int kMaxDrawnSide = 8192;

/// What belongs to one frame in flight.
struct Slot {
    explicit Slot(int uniformAlignment)
        : uniforms(uniformAlignment) {}

    RenderTarget picture{TargetFormat::rgba8};
    UniformArena uniforms;
    DrawnFrame frame;
    Fence done;
};

Size drawnSizeOf(const FrameRequest& request) {
    return request.outputSize.scaled(request.quality.oversampling);
}

void checkRequest(const FrameRequest& request) {
    const Size size = request.outputSize;
    CHECK(size.width > 0 && size.height > 0, "a picture of {} x {}", size.width, size.height);
    CHECK(
        request.quality.oversampling >= 1 && request.quality.oversampling <= 4,
        "an oversampling of {}",
        request.quality.oversampling);
    const Size drawn = drawnSizeOf(request);
    CHECK(
        drawn.width <= kMaxDrawnSide && drawn.height <= kMaxDrawnSide,
        "a picture drawn at {} x {}",
        drawn.width,
        drawn.height);
}

double noTime() {
    return 0;
}

} // namespace

struct SCNRenderer::State {
    State(std::unique_ptr<HeadlessContext> made, Downscaling downscaling)
        : context(std::move(made))
        , device(readDeviceInfo())
        , passes(device)
        , slots{
              Slot(device.uniformAlignment),
              Slot(device.uniformAlignment),
              Slot(device.uniformAlignment)} {
        const bool onCpu = downscaling == Downscaling::automatic ? device.isSoftware
                                                                 : downscaling == Downscaling::cpu;
        delivery = onCpu ? makeCpuDelivery() : makeGpuDelivery();
    }

    std::unique_ptr<HeadlessContext> context; // must be destroyed last: all members below need it
    DeviceInfo device;
    FramePasses passes;
    std::unique_ptr<FrameDelivery> delivery;
    std::array<Slot, kFramesInFlight> slots;
    /// frames begun since the start; a frame's slot is its number modulo kFramesInFlight
    std::size_t begun = 0;
    std::size_t finished = 0;
    FrameTimes times;
    double (*stopwatch)() = noTime;
};

foundation::Result<std::unique_ptr<SCNRenderer>> SCNRenderer::make(Downscaling downscaling) {
    auto context = HeadlessContext::make();
    if (!context)
        return tl::unexpected(context.error());
    std::unique_ptr<SCNRenderer> renderer(new SCNRenderer());
    renderer->state = std::make_unique<State>(std::move(*context), downscaling);
    return renderer;
}

SCNRenderer::SCNRenderer() = default;

SCNRenderer::~SCNRenderer() {
    if (!state)
        return;
    state->context->makeCurrent();
    glFinish();
}

void SCNRenderer::begin(const FrameRequest& request) {
    checkRequest(request);
    CHECK(scene() != nullptr, "no scene is attached to the renderer");
    CHECK(framesInFlight() < kFramesInFlight, "{} frames are in flight already", framesInFlight());
    const double start = state->stopwatch();
    update(request.time);
    const scene::SCNScenePtr drawn = scene();
    if (delegate != nullptr)
        delegate->rendererWillRenderScene(*this, *drawn, request.time);
    const double animated = state->stopwatch();

    state->context->makeCurrent();
    const std::size_t index = state->begun % kFramesInFlight;
    Slot& slot = state->slots.at(index);
    slot.frame = {index, &slot.picture, request.outputSize};
    state->passes.draw(
        {*drawn,
         pointOfView.get(),
         technique,
         drawnSizeOf(request),
         request.quality.samples,
         request.outputSize,
         slot.uniforms},
        slot.picture);
    state->delivery->queue(slot.frame, state->passes.graphicsState(), slot.uniforms);
    slot.done.set();
    glFlush();
    ++state->begun;
    if (delegate != nullptr)
        delegate->rendererDidRenderScene(*this, *drawn, request.time);
    state->times.animateMs += 1000 * (animated - start);
    state->times.drawMs += 1000 * (state->stopwatch() - animated);
}

FrameView SCNRenderer::finish() {
    CHECK(framesInFlight() > 0, "no frame has been begun");
    const double start = state->stopwatch();
    state->context->makeCurrent();
    Slot& slot = state->slots.at(state->finished % kFramesInFlight);
    ++state->finished;
    slot.done.await();
    const double drawn = state->stopwatch();
    const FrameView view{slot.frame.outputSize, state->delivery->fetch(slot.frame)};
    // A software driver draws on this CPU, so waiting for it counts as drawing time.
    double& waited = state->device.isSoftware ? state->times.drawMs : state->times.readBackMs;
    waited += 1000 * (drawn - start);
    state->times.readBackMs += 1000 * (state->stopwatch() - drawn);
    ++state->times.frames;
    return view;
}

int SCNRenderer::framesInFlight() const {
    return static_cast<int>(state->begun - state->finished);
}

image::Image SCNRenderer::snapshotAtTime(double time, Size outputSize, const DrawQuality& quality) {
    CHECK(framesInFlight() == 0, "a snapshot in the middle of {} frames", framesInFlight());
    begin({time, outputSize, quality});
    const FrameView view = finish();
    image::Image picture(outputSize.width, outputSize.height);
    picture.pixels.assign(view.bytes.begin(), view.bytes.end());
    return picture;
}

const FrameTimes& SCNRenderer::times() const {
    return state->times;
}

void SCNRenderer::resetTimes() {
    state->times = {};
}

std::string SCNRenderer::deviceName() const {
    return state->device.name;
}

bool SCNRenderer::isSoftware() const {
    return state->device.isSoftware;
}

void SCNRenderer::setStopwatch(double (*seconds)()) {
    state->stopwatch = seconds != nullptr ? seconds : noTime;
}

} // namespace zelvo::render
