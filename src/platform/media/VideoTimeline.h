// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace zelvo::media {

/// When each picture of a video is shown. Built from all packets of the file, because frame rates
/// in headers are often wrong or vary, and pictures are stored in another order than shown.
///
///     packets, as stored    I0  P3  B1  B2   P6  B4  B5
///     index, as shown        0   1   2   3    4   5   6
///
/// Times are ticks of the stream's time base, unless they are called seconds. Seconds count from the
/// first picture.
class VideoTimeline {
public:
    /// More pictures than this are not kept: 24 hours at 100 a second.
    static constexpr std::size_t kMaxPictures = 24UL * 60 * 60 * 100;

    struct Packet {
        std::optional<std::int64_t> pts; ///< when it is shown
        std::optional<std::int64_t> dts; ///< when it is decoded
        std::int64_t duration = 0;
        bool isKey = false; ///< whether decoding can begin here
    };

    explicit VideoTimeline(double secondsPerTick)
        : tick(secondsPerTick) {}

    void add(const Packet& packet);
    /// Call it after the last packet. False if there is no picture.
    [[nodiscard]] bool finish();

    [[nodiscard]] std::size_t count() const { return times.size(); }

    /// The time of a picture. The index must be less than count().
    [[nodiscard]] std::int64_t timeOf(std::size_t index) const { return times[index]; }

    [[nodiscard]] double secondsOf(std::size_t index) const;

    /// The picture on show: the last one that has begun. Before the first picture it is the first,
    /// after the last one the last.
    [[nodiscard]] std::size_t indexAt(double seconds) const;

    /// To the end of the last picture.
    [[nodiscard]] double duration() const;

    /// Some old files say only when packets are decoded. Then times are in the right order, but a
    /// decoded picture does not tell which one it is: pictures must be counted from the start.
    [[nodiscard]] bool mustBeCounted() const { return hasOnlyDecodingTimes; }

    struct Key {
        std::int64_t pts = 0;
        std::int64_t dts = 0;
    };

    /// The last key picture shown at or before this time; empty if there is none.
    [[nodiscard]] std::optional<Key> keyAtOrBefore(std::int64_t time) const;

private:
    double tick;
    std::vector<std::int64_t> times;         ///< ascending after finish()
    std::vector<std::int64_t> decodingTimes; ///< as stored
    std::vector<Key> keys;                   ///< by pts after finish()
    std::int64_t lastDuration = 0;           ///< of the picture that is shown last
    std::int64_t lastTime = INT64_MIN;
    bool hasOnlyDecodingTimes = false;
};

} // namespace zelvo::media
