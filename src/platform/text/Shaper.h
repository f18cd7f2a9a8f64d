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

/// A glyph on the line. Lengths are in scene units.
struct ShapedGlyph {
    FacePtr face;
    std::uint32_t glyph = 0;
    std::uint32_t character = 0; ///< index into charactersOf
    double pen = 0;              ///< where its advance starts
    double advance = 0;          ///< including the kern
    double offsetX = 0;          ///< from the pen to the glyph's origin
    double offsetY = 0;
};

struct ShapedLine {
    std::vector<std::string> characters;
    std::vector<FacePtr> faces;      ///< for each character; null if there is no font at all
    std::vector<ShapedGlyph> glyphs; ///< from left to right
};

/// Sets a string on one line. Where it is written right to left, later letters are farther left.
[[nodiscard]] ShapedLine shapeLine(std::string_view string, const TextAttributes& attributes);

} // namespace zelvo::text
