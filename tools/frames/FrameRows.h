// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

#include <vector>

namespace zelvo::frames {

/// How the frames of a small movie in a loop stand in one picture.
struct Rows {
    int columns = 0;
    int count = 0;   ///< frames in the picture
    int passing = 0; ///< frames in which the end passes into the beginning
};

/// The frames in rows. The first ones come softly out of those behind the last one: so there must be at
/// least `count` plus `passing`, all of one size.
[[nodiscard]] QImage inRows(const std::vector<QImage>& frames, const Rows& rows);

/// A JPEG of that quality, or of a lower one if it would be larger than `most` bytes.
[[nodiscard]] QByteArray packed(const QImage& sheet, int quality, int most);

} // namespace zelvo::frames
