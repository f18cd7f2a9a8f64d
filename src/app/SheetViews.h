// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "app/Performance.h"

#include <optional>
#include <string>
#include <vector>

namespace zelvo::app {

/// One tile of a sheet: a stage, and which node of it is sized to the tile.
struct SheetView {
    std::string caption;
    Performance stage;
    std::optional<std::string> fitted; ///< a node's short name; absent: sizes are the stage's own
};

/// How a sheet's tiles are laid out and seen.
struct SheetFormat {
    int columns = 4;
    PictureSize tile;
    double fitWidth = 0; ///< the space of a fitted node, scene units
    double fitHeight = 0;
};

[[nodiscard]] SheetFormat formatOf(SheetKind kind);

/// A view of each material, scene, shape, mask or font, in the order of `zelvo list`.
[[nodiscard]] std::vector<SheetView> viewsOf(SheetKind kind);

} // namespace zelvo::app
