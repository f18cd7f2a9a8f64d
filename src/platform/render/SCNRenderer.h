// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"
#include "platform/render/DrawQuality.h"
#include "platform/render/Size.h"
#include "platform/scene/SCNSceneRenderer.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace zelvo::render {

/// One frame to draw.
struct FrameRequest {
    double time = 0;             ///< scene time in seconds
    Size outputSize{1920, 1080}; ///< of the delivered picture
    DrawQuality quality{};
    /// The background and the nodes of these categories are left out, and the picture has alpha.
    /// 0: nothing is left out, and the picture is opaque.
    std::uint32_t leftOut = 0;
};

/// The pixels of a finished frame: red, green, blue, straight alpha, rows from the top without
/// gaps. Valid until the next call to the renderer.
struct FrameView {
    Size size;
    std::span<const std::uint8_t> bytes;
};

/// Where the time went, in milliseconds, summed since the last reset.
struct FrameTimes {
    double animateMs = 0;
    /// From the first draw call to the end of submission; in software, to the end of drawing.
    double drawMs = 0;
    double readBackMs = 0; ///< waiting for the finished picture and copying it
    int frames = 0;
    int repeated = 0; ///< of them, those that look like the one before: copied, not drawn
};

/// Where the drawn picture is scaled down. With a software driver, plain C++ is faster. With a
/// graphics card, the GPU does it before the picture is sent.
enum class Downscaling { automatic, cpu, gpu };

/// The offscreen renderer: draws frames without a window, on a graphics card or in software (EGL).
///
/// An export keeps several frames in flight: `begin` animates the scene and queues the drawing,
/// `finish` waits for the oldest frame. At most kFramesInFlight may be in flight.
class SCNRenderer final : public scene::SCNSceneRenderer {
public:
    static constexpr int kFramesInFlight = 2;

    /// Error: `unavailable` (no EGL display, no OpenGL 4.5), with the driver's message.
    [[nodiscard]] static foundation::Result<std::unique_ptr<SCNRenderer>>
    make(Downscaling downscaling = Downscaling::automatic);
    ~SCNRenderer() override;

    bool jitteringEnabled = false;

    void begin(const FrameRequest& request);
    [[nodiscard]] FrameView finish();
    [[nodiscard]] int framesInFlight() const;

    /// `begin` and `finish` in one call. Blocks until the picture is ready.
    [[nodiscard]] image::Image
    snapshotAtTime(double time, Size outputSize, const DrawQuality& quality = {});
    [[nodiscard]] image::Image snapshot(const FrameRequest& request);

    [[nodiscard]] const FrameTimes& times() const;
    void resetTimes();

    /// For example "llvmpipe (LLVM 15.0.6, 256 bits)".
    [[nodiscard]] std::string deviceName() const;
    [[nodiscard]] bool isSoftware() const;

    /// Sets the clock for FrameTimes (seconds, monotonic). Without one all times are 0, because the
    /// renderer itself must not read the wall clock.
    void setStopwatch(double (*seconds)());

private:
    SCNRenderer();
    struct State;
    std::unique_ptr<State> state;
};

} // namespace zelvo::render
