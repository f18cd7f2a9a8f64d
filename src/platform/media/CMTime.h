// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>

namespace zelvo::media {

/// A time as a fraction of integers, so that frame times are exact: frame n of a movie is at n/60.
/// A negative value with timescale 0 is negative infinity, which is before all other times.
struct CMTime {
    std::int64_t value = 0;
    std::int32_t timescale = 1;

    [[nodiscard]] static constexpr CMTime negativeInfinity() { return {-1, 0}; }

    /// The nearest time with this timescale. The timescale must be positive, the seconds finite.
    [[nodiscard]] static CMTime makeWithSeconds(double seconds, std::int32_t timescale);

    [[nodiscard]] double seconds() const;

    /// The nearest time in another timescale (halves round away from zero). Not for negative
    /// infinity.
    [[nodiscard]] CMTime converted(std::int32_t toTimescale) const;

    /// 1/2 equals 30/60. Negative infinity equals only itself.
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

/// Sum and difference in the finer of the two timescales. Exact if one timescale divides the other.
[[nodiscard]] CMTime operator+(const CMTime& a, const CMTime& b);
[[nodiscard]] CMTime operator-(const CMTime& a, const CMTime& b);

struct CMTimeRange {
    CMTime start;
    CMTime duration;

    [[nodiscard]] CMTime end() const { return start + duration; }
};

} // namespace zelvo::media
