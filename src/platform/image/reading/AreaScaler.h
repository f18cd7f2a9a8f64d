// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"
#include "platform/image/reading/Extent.h"

#include <cstdint>
#include <span>
#include <vector>

namespace zelvo::image {

/// The same extent, scaled down if its longer side is above kMaxSide.
[[nodiscard]] Extent limitedExtent(Extent extent);

/// Scales a picture down while its rows arrive from the top. Every pixel becomes the mean of the
/// area it covers; colours are weighted by alpha. Needs memory only for the small picture and a few
/// of its rows.
class AreaScaler {
public:
    /// Sides must be positive, and `result` at most as large as `source`.
    AreaScaler(Extent source, Extent result);

    /// Adds the next row: RGBA with straight alpha.
    void addRow(std::span<const std::uint8_t> row);

    /// The scaled picture; call it after all rows were added.
    [[nodiscard]] Image take();

private:
    /// Colours times alpha, and alpha, which can be added up.
    using Sum = float __attribute__((vector_size(16)));

    /// How one source pixel is split: its part of the result's pixel `first`, and of the next one.
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
    std::vector<Sum> across; ///< the newest source row, scaled horizontally
    std::vector<Sum> here;   ///< the result's current row
    std::vector<Sum> after;  ///< the row below
    int rowsAdded = 0;
    int rowsDone = 0;
};

} // namespace zelvo::image
