// SPDX-License-Identifier: MIT
#include "platform/media/AVMutableAudioMix.h"

#include "platform/foundation/Check.h"

#include <algorithm>
#include <iterator>

namespace zelvo::media {

void AVMutableAudioMixInputParameters::setVolume(double volume, CMTime time) {
    add({time.seconds(), 0.0, volume, volume});
}

void AVMutableAudioMixInputParameters::setVolumeRamp(
    double startVolume, double endVolume, const CMTimeRange& timeRange) {
    add({timeRange.start.seconds(), timeRange.duration.seconds(), startVolume, endVolume});
}

void AVMutableAudioMixInputParameters::add(const Ramp& ramp) {
    CHECK(ramp.duration >= 0.0, "a volume ramp of {} s", ramp.duration);
    const auto place = std::ranges::upper_bound(ramps, beginOf(ramp), {}, beginOf);
    ramps.insert(place, ramp);
}

/// A ramp that begins before 0 is heard from its middle, so it is sorted as if it began at 0.
double AVMutableAudioMixInputParameters::beginOf(const Ramp& ramp) {
    return std::max(ramp.start, 0.0);
}

double AVMutableAudioMixInputParameters::volumeAt(double seconds) const {
    const auto next = std::ranges::upper_bound(ramps, seconds, {}, beginOf);
    if (next == ramps.begin())
        return 1.0;
    const Ramp& ramp = *std::prev(next);
    if (seconds >= ramp.start + ramp.duration)
        return ramp.to;
    return ramp.from + (ramp.to - ramp.from) * (seconds - ramp.start) / ramp.duration;
}

} // namespace zelvo::media
