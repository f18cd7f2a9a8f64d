// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media/CMTime.h"

#include <vector>

namespace zelvo::media {

/// The volume of a track over time: steps and linear ramps, sorted by time. At equal times the
/// later call wins. After a ramp its end volume stays. Volumes are 0 to 1, initially 1.
class AVMutableAudioMixInputParameters {
public:
    [[nodiscard]] int trackID() const { return trackID_; }

    void setTrackID(int trackID) { trackID_ = trackID; }

    void setVolume(double volume, CMTime time);
    void setVolumeRamp(double startVolume, double endVolume, const CMTimeRange& timeRange);

    [[nodiscard]] double volumeAt(double seconds) const;

private:
    struct Ramp {
        double start;    // seconds
        double duration; // seconds; 0 for a step
        double from;
        double to;
    };

    void add(const Ramp& ramp);
    [[nodiscard]] static double beginOf(const Ramp& ramp);

    int trackID_ = 0;
    std::vector<Ramp> ramps; // sorted by beginOf
};

struct AVMutableAudioMix {
    std::vector<AVMutableAudioMixInputParameters> inputParameters;
};

} // namespace zelvo::media
