// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"

#include <cstdint>
#include <span>
#include <vector>

namespace zelvo::image {

/// A picture's extent in pixels.
struct Extent {
    int width = 0;
    int height = 0;
};

/// The extent itself, or the one of the same shape whose longer side is kMaxSide.
[[nodiscard]] Extent limitedExtent(Extent extent);

/// Scales a picture down while its rows come in, from the top: every pixel becomes the mean of the
/// area that it covers, colours weighed by their alpha. It holds the small picture and a few of
/// its rows, whatever the size of the large one.
class AreaScaler {
public:
    /// Sides are positive; those of the result are at most those of the source.
    AreaScaler(Extent source, Extent result);

    /// The next row, RGBA with straight alpha.
    void addRow(std::span<const std::uint8_t> row);

    /// The scaled picture, when all rows were added.
    [[nodiscard]] Image take();

private:
    /// Colours times alpha, and alpha: what may be added up.
    using Sum = float __attribute__((vector_size(16)));

    /// How one source pixel spreads: its part of the result's pixel `first`, and of the one after.
    struct Share {
        int first;
        float here;
        float after;
    };

    [[nodiscard]] static Share shareOf(int at, int from, int to);
    void addColumns(std::span<const std::uint8_t> row);
    void addToRow(std::vector<Sum>& sums, float weight) const;
    void finishRow();

    Extent source;
    Image image;
    std::vector<Share> columns;
    std::vector<Sum> across; ///< the newest source row, scaled across
    std::vector<Sum> here;   ///< the result's row that is being filled
    std::vector<Sum> after;  ///< the one below it
    int rowsAdded = 0;
    int rowsDone = 0;
};

} // namespace zelvo::image
