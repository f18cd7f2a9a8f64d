// SPDX-License-Identifier: MIT
#pragma once

#include "platform/text/FontFace.h"
#include "platform/text/LineLayout.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zelvo::text {

using FacePtr = std::shared_ptr<const FontFace>;

/// A glyph on the line, in scene units.
struct ShapedGlyph {
    FacePtr face;
    std::uint32_t glyph = 0;
    std::uint32_t character = 0; ///< index into charactersOf
    double pen = 0;              ///< where its advance begins
    double advance = 0;          ///< kern included
    double offsetX = 0;          ///< from the pen to the glyph's own origin
    double offsetY = 0;
};

struct ShapedLine {
    std::vector<std::string> characters;
    std::vector<FacePtr> faces;      ///< by character; null where there is no font at all
    std::vector<ShapedGlyph> glyphs; ///< from left to right
};

/// Sets a string on one line that runs from left to right; right-to-left stretches run backwards
/// within it.
[[nodiscard]] ShapedLine shapeLine(std::string_view string, const TextAttributes& attributes);

} // namespace zelvo::text
