// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media/CMTime.h"
#include "platform/media/VideoSettings.h"

#include <atomic>

namespace zelvo::shared {

/// The time of a run. It is counted in ticks and never measured. Each tick is one frame of the
/// movie; those of the count-in are below 0.
///
///     tick                0 ........... 120 .......... 600
///     frame            -120 ............. 0 .......... 480
///     time()              0 ..... 120 steps .... 600 steps   seconds; what records keep
///     secondsOf(frame) ............ 0 steps .... 480 steps   seconds; what the scene is brought to
///     presentationTime(frame) ......... 0/60 ...... 480/60   seconds; what the file says
///
/// A step is a hair more than a sixtieth, so that the frame in which a duration ends has reached
/// it. Steps are multiplied, not added up: sums lose that hair after some twenty seconds.
///
/// One thread counts, any thread may ask.
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

    /// Of a time that is about a frame's, and of one that has to be put on a frame.
    [[nodiscard]] static int nearestFrame(double seconds);
    /// The frame that is seen at a moment: the last that has come.
    [[nodiscard]] static int frameSeenAt(double seconds);
    /// The first frame that is not before the moment: the one in which a duration ends.
    [[nodiscard]] static int frameReaching(double seconds);

    /// How many frames a run of that duration draws, both ends included.
    [[nodiscard]] static int framesDrawnIn(double duration) { return frameReaching(duration) + 1; }

    [[nodiscard]] static constexpr media::CMTime presentationTime(int frame) {
        return {frame, kFramesPerSecond};
    }

    /// What is due at a moment comes with the tick that is at most a third of a step before it.
    [[nodiscard]] static constexpr bool hasCome(double moment, double now) {
        return moment - kNearZero <= now;
    }

private:
    const int countInFrames;
    std::atomic<int> ticks = 0;
};

} // namespace zelvo::shared
