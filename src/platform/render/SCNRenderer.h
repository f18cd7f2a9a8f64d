// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"
#include "platform/render/Size.h"
#include "platform/scene/SCNSceneRenderer.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace zelvo::render {

/// One frame asked for: drawn larger than it is delivered, the scaling down takes the place of
/// antialiasing.
struct FrameRequest {
    double time = 0;             ///< scene seconds
    Size outputSize{1920, 1080}; ///< of the delivered picture
    double oversampling = 1.5;   ///< drawn size over output size, 1 to 4
};

/// A finished frame's bytes: red, green, blue and an opaque alpha a pixel, rows from the top
/// without gaps. Valid until the next call to the renderer that made it.
struct FrameView {
    Size size;
    std::span<const std::uint8_t> bytes;
};

/// Where a frame's time went, in milliseconds, summed since the last reset.
struct FrameTimes {
    double animateMs = 0;
    double drawMs =
        0; ///< from the first draw call to the end of submission (in software: of drawing)
    double readBackMs = 0; ///< waiting for and fetching the finished picture
    int frames = 0;
};

/// Who scales the drawn picture down. On the CPU it is cheaper outside of a software driver's
/// shaders; a graphics card does it before it sends the picture.
enum class Downscaling { automatic, cpu, gpu };

/// The offscreen renderer. Draws without a window system through EGL, on a graphics card or in
/// software.
///
/// A frame goes in three steps that an export overlaps: `begin` animates the scene and queues the
/// drawing, `finish` fetches the oldest frame begun. Up to kFramesInFlight may be begun before the
/// first must be finished.
class SCNRenderer final : public scene::SCNSceneRenderer {
public:
    static constexpr int kFramesInFlight = 3;

    /// Errors: unavailable (no EGL display, no OpenGL 4.5) with what the driver said.
    [[nodiscard]] static foundation::Result<std::unique_ptr<SCNRenderer>>
    make(Downscaling downscaling = Downscaling::automatic);
    ~SCNRenderer() override;

    bool jitteringEnabled = false;

    void begin(const FrameRequest& request);
    [[nodiscard]] FrameView finish();
    [[nodiscard]] int framesInFlight() const;

    /// begin and finish at once: blocks until the picture is there.
    [[nodiscard]] image::Image
    snapshotAtTime(double time, Size outputSize, double oversampling = 1.5);

    [[nodiscard]] const FrameTimes& times() const;
    void resetTimes();

    /// "llvmpipe (LLVM 15.0.6, 256 bits)" and whether that draws on the CPU.
    [[nodiscard]] std::string deviceName() const;
    [[nodiscard]] bool isSoftware() const;

    /// The clock that FrameTimes is measured with: seconds, monotonic. Zero until one is set, as
    /// drawing itself knows no wall clock.
    void setStopwatch(double (*seconds)());

private:
    SCNRenderer();
    struct State;
    std::unique_ptr<State> state;
};

} // namespace zelvo::render
