// SPDX-License-Identifier: MIT
#pragma once

#include "platform/text/FontRegistry.h"

#include <string>
#include <string_view>
#include <vector>

namespace zelvo::text {

/// How a whole string is set: one font, no ligatures and no joined letters, the font's own kerning,
/// plus `kern` behind every glyph.
struct TextAttributes {
    FontPtr font; ///< null sets in the first fallback
    /// Tried in turn for characters that `font` lacks; where all lack it, the font's missing glyph
    /// shows.
    std::vector<FontPtr> fallbacks{};
    double size = 94; ///< em, scene units
    double kern = 0;  ///< scene units
};

/// One user-perceived character (an extended grapheme cluster, Unicode UAX #29) with what it needs
/// to be drawn alone.
struct PlacedCharacter {
    std::string text;  ///< UTF-8
    double x = 0;      ///< pen position on the line
    double width = 0;  ///< advance, kern included
    double ascent = 0; ///< of the font, scene units above the baseline
    double descent = 0;
    double leading = 0;
};

/// The characters of a string: what "one letter" means everywhere. Invalid UTF-8 becomes U+FFFD.
[[nodiscard]] std::vector<std::string> charactersOf(std::string_view string);

/// Sets a string on one line. One entry per character of charactersOf, in the string's order, also
/// for right-to-left text (which is placed from right to left) and for marks (which belong to their
/// base character).
[[nodiscard]] std::vector<PlacedCharacter>
layoutLine(std::string_view string, const TextAttributes& attributes);

/// The outline of a string's glyphs, pen at x 0 on the baseline: what a letter's solid is made of.
[[nodiscard]] geometry::BezierPath
outlineOf(std::string_view string, const TextAttributes& attributes);

} // namespace zelvo::text
