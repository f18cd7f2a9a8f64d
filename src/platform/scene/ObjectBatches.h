// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/ObjectScene.h"

namespace zelvo::scene {

/// Joins the small pieces of a file that has very many of them, because each node costs time in
/// every frame: what has the same material becomes one piece, which is placed once. Pieces that can
/// be looked through stay apart, because they are sorted by their distance. The figures stay as they
/// are.
void joinSmallPieces(object::ObjectScene& scene);

} // namespace zelvo::scene
