// SPDX-License-Identifier: MIT
#pragma once

#include "document/PerformanceReader.h"

namespace zelvo::document {

/// A few names of each kind.
inline Names testNames() {
    Names names{
        .fonts = {"Abel-Regular", "Audiowide-Regular", "Bungee"},
        .materials = {"Plain", "Iron", "Iron / Plastic"},
        .objectMaterials = {"Plain", "Iron"},
        .shapes = {"None", "Star 1", "Heart"},
        .masks = {"None", "Mask 1", "Mask 12"},
        .scenes = {"Plain", "Stage"},
        .speeds = {"Slow", "Normal", "Fast"},
        .fades = {"noFade", "fadeIn", "fadeOut", "fadeInOut"},
        .tabs = {
            {"IN1", {"Left In", "Right In"}}, {"OT2", {"Falling Out", "Fade Out"}}, {"CAM", {}}}};
    names.tabs.push_back({"FX1", {"Blur"}, {"Blur"}});
    return names;
}

} // namespace zelvo::document
