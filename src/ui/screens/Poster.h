// SPDX-License-Identifier: MIT
#pragma once

#include "export/MovieOptions.h"

#include <QString>

#include <memory>

namespace zelvo::ui {

/// A picture of the movie, shown if the movie cannot be played.
struct Poster {
    bool isTaken = false;
    QString source; ///< a data URL; empty until the picture is available
};

/// Stores the picture at time `at` (seconds of the movie) in the poster, at most kPosterWidth
/// pixels wide.
[[nodiscard]] movie::FrameTap posterTap(const std::shared_ptr<Poster>& poster, double at);

inline constexpr int kPosterWidth = 960;

} // namespace zelvo::ui
