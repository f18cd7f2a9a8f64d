// SPDX-License-Identifier: MIT
#include "platform/media/VideoTimeline.h"

#include <algorithm>
#include <cmath>

namespace zelvo::media {
namespace {

/// Some files round times to milliseconds. A picture that begins this little later is on show.
constexpr double kRounding = 0.001;

/// The duration of a video of one picture that does not tell its own, seconds.
constexpr double kShortest = 1.0 / 60;

/// Times beyond this are damage; within it, differences fit 64 bits.
constexpr std::int64_t kMaxTicks = std::int64_t{1} << 61;

bool isSound(std::int64_t ticks) {
    return ticks > -kMaxTicks && ticks < kMaxTicks;
}

} // namespace

void VideoTimeline::add(const Packet& packet) {
    if (decodingTimes.size() >= kMaxPictures)
        return;
    const auto decoded = packet.dts ? packet.dts : packet.pts;
    if (!decoded || !isSound(*decoded))
        return;
    decodingTimes.push_back(*decoded);
    if (!packet.pts || !isSound(*packet.pts))
        return;
    times.push_back(*packet.pts);
    if (packet.isKey)
        keys.push_back({*packet.pts, *decoded});
    if (*packet.pts >= lastTime) {
        lastTime = *packet.pts;
        lastDuration = std::max<std::int64_t>(packet.duration, 0);
    }
}

bool VideoTimeline::finish() {
    // In AVI files some pictures have a time, by accident. Elsewhere a few may lack theirs.
    const std::size_t missing = decodingTimes.size() - times.size();
    hasOnlyDecodingTimes = missing > decodingTimes.size() / 8;
    if (hasOnlyDecodingTimes)
        times = decodingTimes;
    decodingTimes = {};
    std::ranges::sort(times);
    times.erase(std::unique(times.begin(), times.end()), times.end());
    std::ranges::sort(keys, {}, &Key::pts);
    return !times.empty();
}

double VideoTimeline::secondsOf(std::size_t index) const {
    return static_cast<double>(times[index] - times.front()) * tick;
}

std::size_t VideoTimeline::indexAt(double seconds) const {
    // Ticks can be far coarser than the rounding, but then the next picture is farther away, too.
    const double last = secondsOf(times.size() - 1);
    const double ticks = std::clamp(seconds + kRounding, 0.0, last + 1) / tick;
    const auto time = times.front() + static_cast<std::int64_t>(std::floor(ticks));
    const auto after = std::ranges::upper_bound(times, time);
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(after - times.begin() - 1, 0));
}

double VideoTimeline::duration() const {
    const double last = secondsOf(times.size() - 1);
    const double told = static_cast<double>(lastDuration) * tick;
    if (times.size() < 2)
        return std::max(told, kShortest);
    // Many programs give the last picture no duration, or one tick.
    const double usual = last / static_cast<double>(times.size() - 1);
    return last + (told < usual / 2 ? usual : told);
}

std::optional<VideoTimeline::Key> VideoTimeline::keyAtOrBefore(std::int64_t time) const {
    const auto after = std::ranges::upper_bound(keys, time, {}, &Key::pts);
    if (after == keys.begin())
        return std::nullopt;
    return *std::prev(after);
}

} // namespace zelvo::media
