// SPDX-License-Identifier: MIT
#include "platform/media/CMTime.h"

#include "platform/foundation/Check.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zelvo::media {

CMTime CMTime::makeWithSeconds(double seconds, std::int32_t timescale) {
    CHECK(timescale > 0 && std::isfinite(seconds), "no time of {} s in 1/{}", seconds, timescale);
    return {std::llround(seconds * timescale), timescale};
}

double CMTime::seconds() const {
    if (timescale == 0)
        return -std::numeric_limits<double>::infinity();
    return static_cast<double>(value) / timescale;
}

CMTime CMTime::converted(std::int32_t toTimescale) const {
    CHECK(timescale > 0 && toTimescale > 0, "no {}/{} in 1/{}", value, timescale, toTimescale);
    const Wide scaled = Wide(value) * toTimescale * 2;
    const Wide rounded = (scaled + (value < 0 ? -timescale : timescale)) / (Wide(timescale) * 2);
    return {static_cast<std::int64_t>(rounded), toTimescale};
}

CMTime operator+(const CMTime& a, const CMTime& b) {
    const auto scale = std::max(a.timescale, b.timescale);
    return {a.converted(scale).value + b.converted(scale).value, scale};
}

CMTime operator-(const CMTime& a, const CMTime& b) {
    return a + CMTime{-b.value, b.timescale};
}

} // namespace zelvo::media
