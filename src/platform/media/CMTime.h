// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>

namespace zelvo::media {

/// A time as a whole number of parts of a second, so that frame times are exact: frame n of a movie
/// is n/60. A timescale of 0 with a negative value is negative infinity, earlier than every other
/// time.
struct CMTime {
    std::int64_t value = 0;
    std::int32_t timescale = 1;

    [[nodiscard]] static constexpr CMTime negativeInfinity() { return {-1, 0}; }

    /// The nearest time that the timescale can tell. The timescale is positive, the seconds finite.
    [[nodiscard]] static CMTime makeWithSeconds(double seconds, std::int32_t timescale);

    [[nodiscard]] double seconds() const;

    /// The nearest time in another timescale (halves away from zero). Not for negative infinity.
    [[nodiscard]] CMTime converted(std::int32_t toTimescale) const;

    /// 1/2 equals 30/60. Negative infinity equals itself only.
    [[nodiscard]] friend constexpr bool operator==(const CMTime& a, const CMTime& b) {
        return std::is_eq(a <=> b);
    }

    [[nodiscard]] friend constexpr std::strong_ordering
    operator<=>(const CMTime& a, const CMTime& b) {
        return Wide(a.value) * b.timescale <=> Wide(b.value) * a.timescale;
    }

private:
    __extension__ using Wide = __int128;
};

/// Sum and difference in the finer of the two timescales; exact where that one divides by the
/// other.
[[nodiscard]] CMTime operator+(const CMTime& a, const CMTime& b);
[[nodiscard]] CMTime operator-(const CMTime& a, const CMTime& b);

struct CMTimeRange {
    CMTime start;
    CMTime duration;

    [[nodiscard]] CMTime end() const { return start + duration; }
};

} // namespace zelvo::media
