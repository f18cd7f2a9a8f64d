// SPDX-License-Identifier: MIT
#pragma once

#include "look/XMAT.h"

#include <cstddef>

namespace zelvo::model {
class Model;
}

namespace zelvo::stage {
class Nodes;
}

namespace zelvo::ui {

/// A random style for the whole stage.
struct RandomStyle {
    int scene = 0;              ///< index into SceneManager::sceneNames
    std::size_t background = 0; ///< index into the palette
    std::size_t text = 0;       ///< index into the palette, for faces and sides
    look::XMATClasses material = look::XMATClasses::plain;
    double bevelRadius = 0;    ///< scene units
    double extrusionDepth = 0; ///< scene units
};

/// Draws from the process's random source. The last scene, the last colour of the palette and the
/// last material pair are never chosen.
[[nodiscard]] RandomStyle drawRandomStyle(const stage::Nodes& nodes);

/// Applies it to both texts, the object (unless it shows the materials of an import), the
/// background and the environment.
void applyRandomStyle(model::Model& model, const RandomStyle& style);

} // namespace zelvo::ui
