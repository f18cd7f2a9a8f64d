// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media/CMTime.h"
#include "platform/media/VideoSettings.h"

#include <atomic>

namespace zelvo::shared {

/// The time of a run. It is counted in ticks and never measured. Each tick is one frame of the
/// movie; the frames of the count-in have negative numbers.
///
///     tick                0 ........... 120 .......... 600
///     frame            -120 ............. 0 .......... 480
///     time()              0 ..... 120 steps .... 600 steps   seconds; stored in records
///     secondsOf(frame) ............ 0 steps .... 480 steps   seconds; the scene's time
///     presentationTime(frame) ......... 0/60 ...... 480/60   seconds; the time in the file
///
/// A step is slightly longer than a sixtieth, so that the frame in which a duration ends has really
/// reached it. Steps are multiplied, not added up, because sums lose that difference after about
/// twenty seconds.
///
/// One thread counts; any thread may read.
class FrameClock {
public:
    static constexpr int kFramesPerSecond = media::VideoSettings::kFramesPerSecond;
    static constexpr double kStep = 0.016666666666667;        ///< seconds
    static constexpr double kNearZero = 0.005555555555555667; ///< seconds; a third of the step

    explicit FrameClock(double countIn)
        : countInFrames(nearestFrame(countIn)) {}

    void reset() { ticks = 0; }

    void advance() { ++ticks; }

    [[nodiscard]] double time() const { return secondsOf(ticks); }

    [[nodiscard]] int frame() const { return ticks - countInFrames; }

    [[nodiscard]] static constexpr double secondsOf(int frames) { return frames * kStep; }

    /// The frame nearest to a time.
    [[nodiscard]] static int nearestFrame(double seconds);
    /// The frame that is shown at a time: the last one that has started.
    [[nodiscard]] static int frameSeenAt(double seconds);
    /// The first frame at or after a time: a duration ends in this frame.
    [[nodiscard]] static int frameReaching(double seconds);

    /// The number of frames drawn in a run of that duration, including both ends.
    [[nodiscard]] static int framesDrawnIn(double duration) { return frameReaching(duration) + 1; }

    [[nodiscard]] static constexpr media::CMTime presentationTime(int frame) {
        return {frame, kFramesPerSecond};
    }

    /// Whether a moment is due at a tick. A moment is due up to a third of a step early.
    [[nodiscard]] static constexpr bool hasCome(double moment, double now) {
        return moment - kNearZero <= now;
    }

private:
    const int countInFrames;
    std::atomic<int> ticks = 0;
};

} // namespace zelvo::shared
