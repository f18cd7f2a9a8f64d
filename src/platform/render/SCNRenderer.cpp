// SPDX-License-Identifier: MIT
#include "platform/render/SCNRenderer.h"

#include "platform/foundation/Check.h"
#include "platform/render/Context.h"
#include "platform/render/Fence.h"
#include "platform/render/FrameDelivery.h"
#include "platform/render/FramePasses.h"
#include "platform/render/PassMean.h"

#include <epoxy/gl.h>

#include <array>
#include <cmath>
#include <optional>
#include <utility>

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
    std::vector<std::uint8_t> mean; ///< of the passes; empty if the frame was drawn once
};

scene::SCNMaterialProperty plain(float white) {
    scene::SCNMaterialProperty backdrop;
    backdrop.contents = image::Color::white(white);
    return backdrop;
}

Size drawnSizeOf(const FrameRequest& request) {
    return request.outputSize.scaled(request.quality.oversampling);
}

void checkRequest(const FrameRequest& request) {
    const Size size = request.outputSize;
    CHECK(size.width > 0 && size.height > 0, "a picture of {} x {}", size.width, size.height);
    CHECK(
        request.quality.oversampling >= DrawQuality::kMinOversampling &&
            request.quality.oversampling <= 4,
        "an oversampling of {}",
        request.quality.oversampling);
    const Size drawn = drawnSizeOf(request);
    CHECK(
        drawn.width <= kMaxDrawnSide && drawn.height <= kMaxDrawnSide,
        "a picture drawn at {} x {}",
        drawn.width,
        drawn.height);
}

/// What a frame shows. Two frames in a row with equal ones have the same pixels.
struct Look {
    std::uint64_t key = 0; ///< of PictureKey
    Size size;
    DrawQuality quality;

    friend bool operator==(const Look&, const Look&) = default;
};

double noTime() {
    return 0;
}

} // namespace

struct SCNRenderer::State {
    State(std::unique_ptr<HeadlessContext> made, Downscaling downscaling)
        : context(std::move(made))
        , device(readDeviceInfo())
        , passes(device)
        , slots{Slot(device.uniformAlignment), Slot(device.uniformAlignment)} {
        const bool onCpu = downscaling == Downscaling::automatic ? device.isSoftware
                                                                 : downscaling == Downscaling::cpu;
        delivery = onCpu ? makeCpuDelivery() : makeGpuDelivery();
    }

    [[nodiscard]] static bool isDrawnOnce(const FrameRequest& request) {
        return request.quality.passesDrawn() == 1 && request.leftOut == 0;
    }

    /// After the scene was animated. Nothing if the frame may differ from all others.
    [[nodiscard]] std::optional<Look>
    lookOf(const SCNRenderer& renderer, const FrameRequest& request);
    void draw(SCNRenderer& renderer, Slot& slot, const FrameRequest& request);
    /// Shows the picture of the frame before once more.
    void repeat(Slot& slot, const Slot& before);

    /// A frame, and what is drawn instead of the scene's background.
    struct Order {
        const FrameRequest& request;
        const scene::SCNMaterialProperty* backdrop = nullptr; ///< null: the background
    };

    /// Draws one pass of a frame and queues its delivery.
    void drawPass(SCNRenderer& renderer, Slot& slot, const Order& order, const Moment& moment);
    /// Draws all passes and takes their mean.
    void drawPasses(SCNRenderer& renderer, Slot& slot, const FrameRequest& request);
    void addPasses(SCNRenderer& renderer, Slot& slot, const Order& order, PassMean& sum);

    std::unique_ptr<HeadlessContext> context; // must be destroyed last: all members below need it
    DeviceInfo device;
    FramePasses passes;
    std::unique_ptr<FrameDelivery> delivery;
    std::array<Slot, kFramesInFlight> slots;
    Shutter shutter;
    PassMean mean;
    PassMean meanOnWhite; ///< of a picture with alpha
    const scene::SCNMaterialProperty black = plain(0);
    const scene::SCNMaterialProperty white = plain(1);
    /// frames begun since the start; a frame's slot is its number modulo kFramesInFlight
    std::size_t begun = 0;
    std::size_t finished = 0;
    std::optional<Look> lastLook; ///< of the frame begun last
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

std::optional<Look>
SCNRenderer::State::lookOf(const SCNRenderer& renderer, const FrameRequest& request) {
    if (renderer.technique || request.leftOut != 0 || request.quality.moments > 1)
        return std::nullopt;
    const auto aspect = static_cast<float>(drawnSizeOf(request).aspect());
    const std::optional<std::uint64_t> key =
        passes.pictureKey(*renderer.scene(), renderer.pointOfView.get(), aspect);
    if (!key)
        return std::nullopt;
    return Look{*key, request.outputSize, request.quality};
}

void SCNRenderer::State::draw(SCNRenderer& renderer, Slot& slot, const FrameRequest& request) {
    slot.mean.clear();
    if (isDrawnOnce(request)) {
        drawPass(renderer, slot, {request}, {});
    } else {
        drawPasses(renderer, slot, request);
    }
}

void SCNRenderer::State::repeat(Slot& slot, const Slot& before) {
    ++times.repeated;
    slot.mean = before.mean;
    if (!slot.mean.empty())
        return;
    GraphicsState& graphics = passes.graphicsState();
    slot.uniforms.reset();
    slot.picture.resize(before.picture.size(), graphics);
    before.picture.copyTo(slot.picture, graphics);
    delivery->queue(slot.frame, graphics, slot.uniforms);
    slot.done.set();
    glFlush();
}

void SCNRenderer::State::drawPass(
    SCNRenderer& renderer, Slot& slot, const Order& order, const Moment& moment) {
    const FrameRequest& request = order.request;
    const Size drawnSize = drawnSizeOf(request);
    passes.draw(
        {*renderer.scene(),
         renderer.pointOfView.get(),
         renderer.technique,
         drawnSize,
         request.quality.samples,
         request.outputSize,
         slot.uniforms,
         moment,
         request.leftOut,
         request.quality.detail,
         order.backdrop,
         request.quality.passesDrawn()},
        slot.picture);
    delivery->queue(slot.frame, passes.graphicsState(), slot.uniforms);
    slot.done.set();
    glFlush();
}

void SCNRenderer::State::addPasses(
    SCNRenderer& renderer, Slot& slot, const Order& order, PassMean& sum) {
    const FrameRequest& request = order.request;
    constexpr float kOpen = 0.5F; // of a frame: a shutter of 180 degrees
    const DrawQuality& quality = request.quality;
    // The samples of a drawing are spread over the pixel already: a shift fills the gap between them.
    const float gap = 1 / std::sqrt(static_cast<float>(quality.samples));
    sum.start(byteCount(request.outputSize));
    for (int pass = 0; pass < quality.passesDrawn(); ++pass) {
        const int moment = pass % quality.moments;
        const float part =
            (static_cast<float>(moment) + 0.5F) / static_cast<float>(quality.moments);
        Moment drawn{.shift = quality.passesDrawn() > 1 ? shiftOf(pass) * gap : glm::vec2(0)};
        if (quality.moments > 1) {
            drawn.shutter = &shutter;
            drawn.share = 1 - kOpen + kOpen * part;
        }
        drawPass(renderer, slot, order, drawn);
        slot.done.await();
        sum.add(delivery->fetch(slot.frame));
    }
}

void SCNRenderer::State::drawPasses(
    SCNRenderer& renderer, Slot& slot, const FrameRequest& request) {
    if (request.leftOut == 0) {
        addPasses(renderer, slot, {request}, mean);
        mean.write(slot.mean);
        return;
    }
    addPasses(renderer, slot, {request, &black}, mean);
    addPasses(renderer, slot, {request, &white}, meanOnWhite);
    mean.writeMatte(meanOnWhite, slot.mean);
}

void SCNRenderer::begin(const FrameRequest& request) {
    checkRequest(request);
    CHECK(scene() != nullptr, "no scene is attached to the renderer");
    CHECK(framesInFlight() < kFramesInFlight, "{} frames are in flight already", framesInFlight());
    const double start = state->stopwatch();
    if (request.quality.moments > 1)
        state->shutter.open(*scene());
    update(request.time);
    const scene::SCNScenePtr drawn = scene();
    if (delegate != nullptr)
        delegate->rendererWillRenderScene(*this, *drawn, request.time);
    const double animated = state->stopwatch();

    state->context->makeCurrent();
    const std::size_t index = state->begun % kFramesInFlight;
    Slot& slot = state->slots.at(index);
    slot.frame = {index, &slot.picture, request.outputSize};
    const std::optional<Look> look = state->lookOf(*this, request);
    if (look && look == state->lastLook) {
        state->repeat(slot, state->slots.at((state->begun - 1) % kFramesInFlight));
    } else {
        state->draw(*this, slot, request);
    }
    state->lastLook = look;
    state->shutter.close();
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
    const FrameView view{
        slot.frame.outputSize,
        slot.mean.empty() ? state->delivery->fetch(slot.frame) : std::span(slot.mean)};
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
    return snapshot({time, outputSize, quality});
}

image::Image SCNRenderer::snapshot(const FrameRequest& request) {
    CHECK(framesInFlight() == 0, "a snapshot in the middle of {} frames", framesInFlight());
    begin(request);
    const FrameView view = finish();
    image::Image picture(request.outputSize.width, request.outputSize.height);
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
