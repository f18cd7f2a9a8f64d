// SPDX-License-Identifier: MIT
#pragma once

#include "app/PerformanceReader.h"

namespace zelvo::app {

/// A few names of each kind.
inline Names testNames() {
    return {
        .fonts = {"Abel-Regular", "Audiowide-Regular", "Bungee"        },
        .materials = {"Plain",        "Iron",              "Iron / Plastic"},
        .scenes = {"Plain",        "Stage"            },
        .laterScenes = {"Flares"             },
        .speeds = {"Slow",              "Normal",               "Fast"                },
        .tabs = {
                  {"IN1", {"Left In", "Right In"}},              {"OT2", {"Falling Out", "Fade Out"}},    {"CAM", {}}         }
    };
}

} // namespace zelvo::app
