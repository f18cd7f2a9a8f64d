// SPDX-License-Identifier: MIT
#pragma once

#include "look/XMAT.h"

#include <cstddef>

namespace zelvo::core {
class Model;
class Nodes;
} // namespace zelvo::core

namespace zelvo::ui {

/// A look for the whole stage, drawn by lot.
struct RandomStyle {
    int scene = 0;              ///< index into SceneManager::sceneNames
    std::size_t background = 0; ///< index into the palette
    std::size_t text = 0;       ///< likewise, of faces and sides
    look::XMATClasses material = look::XMATClasses::plain;
    double bevelRadius = 0;    ///< scene units
    double extrusionDepth = 0; ///< scene units
};

/// Draws from the process's random source. The last scene, colour and material pair are never
/// drawn.
[[nodiscard]] RandomStyle drawRandomStyle(const core::Nodes& nodes);

/// Both texts, the object unless it shows an import's own materials, the background and the
/// environment.
void applyRandomStyle(core::Model& model, const RandomStyle& style);

} // namespace zelvo::ui
