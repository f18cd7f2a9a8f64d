// SPDX-License-Identifier: MIT
#include "platform/image/reading/AreaScaler.h"

#include "platform/foundation/Check.h"
#include "platform/image/reading/ImageReader.h"

#include <algorithm>
#include <cmath>

namespace zelvo::image {

Extent limitedExtent(Extent extent) {
    const int side = std::max(extent.width, extent.height);
    if (side <= kMaxSide)
        return extent;
    const auto limited = [side](int length) {
        const double scaled = static_cast<double>(length) * kMaxSide / side;
        return std::max(1, static_cast<int>(std::lround(scaled)));
    };
    return {limited(extent.width), limited(extent.height)};
}

AreaScaler::AreaScaler(Extent sourceExtent, Extent result)
    : source(sourceExtent)
    , image(result.width, result.height)
    , across(static_cast<std::size_t>(result.width))
    , here(across)
    , after(across) {
    CHECK(
        result.width > 0 && result.height > 0 && result.width <= source.width &&
            result.height <= source.height,
        "{} x {} pixels cannot be scaled down to {} x {}",
        source.width,
        source.height,
        result.width,
        result.height);
    columns.reserve(static_cast<std::size_t>(source.width));
    for (int x = 0; x < source.width; ++x)
        columns.push_back(shareOf(x, source.width, result.width));
}

AreaScaler::Share AreaScaler::shareOf(int at, int from, int to) {
    // In units in which a source pixel is `to` long and a result pixel `from`, so all are integers.
    const auto start = static_cast<std::int64_t>(at) * to;
    const std::int64_t first = start / from;
    const std::int64_t over = std::max<std::int64_t>(0, start + to - (first + 1) * from);
    const auto unit = static_cast<float>(from);
    return {
        static_cast<int>(first),
        static_cast<float>(to - over) / unit,
        static_cast<float>(over) / unit};
}

void AreaScaler::addColumns(std::span<const std::uint8_t> row) {
    std::ranges::fill(across, Sum{});
    const std::uint8_t* pixel = row.data();
    for (const Share& share : columns) {
        const auto alpha = static_cast<float>(pixel[3]);
        const Sum value = Sum{static_cast<float>(pixel[0]),
                              static_cast<float>(pixel[1]),
                              static_cast<float>(pixel[2]),
                              1} *
                          alpha;
        Sum* const target = across.data() + share.first;
        target[0] += value * share.here;
        if (share.after > 0)
            target[1] += value * share.after;
        pixel += 4;
    }
}

void AreaScaler::addToRow(std::vector<Sum>& sums, float weight) const {
    for (std::size_t x = 0; x < sums.size(); ++x)
        sums[x] += across[x] * weight;
}

void AreaScaler::addRow(std::span<const std::uint8_t> row) {
    CHECK(
        rowsAdded < source.height && row.size() == static_cast<std::size_t>(source.width) * 4,
        "row {} of {} has {} bytes",
        rowsAdded,
        source.height,
        row.size());
    const Share share = shareOf(rowsAdded, source.height, image.height);
    ++rowsAdded;
    if (share.first > rowsDone)
        finishRow();
    addColumns(row);
    addToRow(here, share.here);
    if (share.after > 0)
        addToRow(after, share.after);
}

void AreaScaler::finishRow() {
    std::uint8_t* pixel = image.pixels.data() + static_cast<std::size_t>(rowsDone) *
                                                    static_cast<std::size_t>(image.width) * 4;
    const auto byte = [](float value) {
        return static_cast<std::uint8_t>(std::clamp(value + 0.5f, 0.0f, 255.0f));
    };
    for (const Sum& sum : here) {
        const float alpha = sum[3];
        const float scale = alpha > 0 ? 1 / alpha : 0;
        for (std::size_t c = 0; c < 3; ++c)
            pixel[c] = byte(sum[c] * scale);
        pixel[3] = byte(alpha);
        pixel += 4;
    }
    std::swap(here, after);
    std::ranges::fill(after, Sum{});
    ++rowsDone;
}

Image AreaScaler::take() {
    CHECK(rowsAdded == source.height, "{} of {} rows were added", rowsAdded, source.height);
    finishRow();
    CHECK(rowsDone == image.height, "{} of {} rows are done", rowsDone, image.height);
    return std::move(image);
}

} // namespace zelvo::image
