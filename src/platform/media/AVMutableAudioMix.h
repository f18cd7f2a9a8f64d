// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media/CMTime.h"

#include <vector>

namespace zelvo::media {

/// The volume of one track over the composition's time: steps and linear ramps, in the order of
/// their times. A later call at the same time stands; after a ramp its end volume holds. Volumes
/// from 0 to 1; before the first call it is 1.
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
        double duration; // 0 for a step
        double from;
        double to;
    };

    void add(const Ramp& ramp);
    [[nodiscard]] static double beginOf(const Ramp& ramp);

    int trackID_ = 0;
    std::vector<Ramp> ramps; // by beginOf
};

struct AVMutableAudioMix {
    std::vector<AVMutableAudioMixInputParameters> inputParameters;
};

} // namespace zelvo::media
