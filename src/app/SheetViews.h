// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "document/Performance.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace zelvo::app {

/// One tile of a sheet: its stage, and the node that is scaled to fill the tile.
struct SheetView {
    std::string caption;
    document::Performance stage;
    std::optional<std::string> fitted; ///< the node's short name; empty: no node is scaled
    std::filesystem::path object;      ///< a 3D file to show; the caption tells its figures, too
};

/// The layout of a sheet.
struct SheetFormat {
    int columns = 4;
    PictureSize tile;
    double fitWidth = 0; ///< the space for a fitted node, scene units
    double fitHeight = 0;
};

[[nodiscard]] SheetFormat formatOf(SheetKind kind);

/// One view for each material, scene, shape, mask or font, in the order of `zelvo list`, or for each
/// of the files.
[[nodiscard]] std::vector<SheetView> viewsOf(const SheetCommand& command);

} // namespace zelvo::app
