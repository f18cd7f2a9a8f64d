// SPDX-License-Identifier: MIT
#pragma once

#include "export/MovieOptions.h"

#include <QString>

#include <memory>

namespace zelvo::ui {

/// One picture of the movie being made, to stand for it where it cannot be played.
struct Poster {
    bool isTaken = false;
    QString source; ///< a data URL; empty until the picture is there
};

/// Takes the picture of the moment `at` (seconds of the movie) into the poster, at most
/// kPosterWidth pixels wide.
[[nodiscard]] movie::FrameTap posterTap(const std::shared_ptr<Poster>& poster, double at);

inline constexpr int kPosterWidth = 960;

} // namespace zelvo::ui
