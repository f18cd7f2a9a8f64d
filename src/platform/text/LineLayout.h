// SPDX-License-Identifier: MIT
#pragma once

#include "platform/text/FontRegistry.h"

#include <string>
#include <string_view>
#include <vector>

namespace zelvo::text {

/// How a string is set: one font, no ligatures, no joined letters, the font's kerning, plus `kern`
/// after each glyph.
struct TextAttributes {
    FontPtr font; ///< null: the first fallback
    /// Tried in order for characters that `font` lacks. If all lack it, the font's missing glyph is
    /// shown.
    std::vector<FontPtr> fallbacks{};
    double size = 94; ///< em, scene units
    double kern = 0;  ///< scene units
};

/// A character as users see it (an extended grapheme cluster, Unicode UAX #29), with all that is
/// needed to draw it alone.
struct PlacedCharacter {
    std::string text;  ///< UTF-8
    double x = 0;      ///< pen position on the line
    double width = 0;  ///< advance, including the kern
    double ascent = 0; ///< of the font, in scene units above the baseline
    double descent = 0;
    double leading = 0;
};

/// The characters of a string, as everywhere in the program. Invalid UTF-8 becomes U+FFFD.
[[nodiscard]] std::vector<std::string> charactersOf(std::string_view string);

/// Sets a string on one line. Returns one entry for each character of charactersOf, in the string's
/// order. That is also true for right-to-left text, which is placed from right to left, and for
/// marks, which belong to their base character.
[[nodiscard]] std::vector<PlacedCharacter>
layoutLine(std::string_view string, const TextAttributes& attributes);

/// The outline of a string's glyphs. The pen starts at x 0 on the baseline.
[[nodiscard]] geometry::BezierPath
outlineOf(std::string_view string, const TextAttributes& attributes);

} // namespace zelvo::text
