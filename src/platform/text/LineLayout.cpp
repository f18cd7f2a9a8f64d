// SPDX-License-Identifier: MIT
#include "platform/text/LineLayout.h"

#include "platform/text/Shaper.h"

#include <glm/mat3x2.hpp>

#include <QString>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <limits>

namespace zelvo::text {

namespace {

// Characters that share a glyph with the one before get equal parts of its width.
void shareWidths(std::vector<PlacedCharacter>& characters, const std::vector<char>& hasGlyph) {
    std::size_t i = 0;
    while (i < characters.size()) {
        std::size_t end = i + 1;
        while (end < characters.size() && hasGlyph[end] == 0) {
            ++end;
        }
        const double share = characters[i].width / static_cast<double>(end - i);
        for (std::size_t j = i; j < end && end - i > 1; ++j) {
            characters[j].x = characters[i].x + share * static_cast<double>(j - i);
            characters[j].width = share;
        }
        i = end;
    }
}

void appendBox(geometry::BezierPath& path, glm::dvec2 min, glm::dvec2 max) {
    path.moveTo(min);
    path.lineTo({max.x, min.y});
    path.lineTo(max);
    path.lineTo({min.x, max.y});
    path.close();
}

// For fonts with an empty missing glyph: a letter that cannot be drawn must still be visible.
geometry::BezierPath missingGlyphFrame(double advance, double size) {
    constexpr double kSide = 0.03;   // ems left and right of the frame
    constexpr double kStroke = 0.09; // ems; wide enough for a large bevel
    constexpr double kHeight = 0.7;  // ems
    constexpr double kNarrow = 0.35; // ems; an empty glyph may have no advance
    const glm::dvec2 stroke(kStroke * size);
    const glm::dvec2 min{kSide * size, 0};
    const glm::dvec2 max{(std::max(advance / size, kNarrow) - kSide) * size, kHeight * size};
    geometry::BezierPath frame;
    appendBox(frame, min, max);
    // The hole goes in the other direction, so that it stays open with non-zero winding.
    appendBox(frame, {max.x - stroke.x, min.y + stroke.y}, {min.x + stroke.x, max.y - stroke.y});
    return frame;
}

} // namespace

std::vector<std::string> charactersOf(std::string_view string) {
    const QString text = QString::fromUtf8(string.data(), static_cast<qsizetype>(string.size()));
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    std::vector<std::string> characters;
    qsizetype start = 0;
    for (qsizetype end = finder.toNextBoundary(); end > start; end = finder.toNextBoundary()) {
        characters.push_back(text.mid(start, end - start).toStdString());
        start = end;
    }
    return characters;
}

std::vector<PlacedCharacter> layoutLine(std::string_view string, const TextAttributes& attributes) {
    const ShapedLine line = shapeLine(string, attributes);
    std::vector<PlacedCharacter> placed(line.characters.size());
    std::vector<char> hasGlyph(placed.size(), 0);
    for (std::size_t i = 0; i < placed.size(); ++i) {
        placed[i].text = line.characters[i];
        if (line.faces[i] == nullptr)
            continue;
        const FontFace::Metrics metrics = line.faces[i]->metrics();
        placed[i].ascent = metrics.ascent * attributes.size;
        placed[i].descent = metrics.descent * attributes.size;
        placed[i].leading = metrics.leading * attributes.size;
    }
    for (const ShapedGlyph& glyph : line.glyphs) {
        PlacedCharacter& character = placed[glyph.character];
        if (hasGlyph[glyph.character] == 0)
            character.x = glyph.pen;
        hasGlyph[glyph.character] = 1;
        character.width += glyph.advance;
    }
    shareWidths(placed, hasGlyph);
    return placed;
}

geometry::BezierPath outlineOf(std::string_view string, const TextAttributes& attributes) {
    geometry::BezierPath path;
    for (const ShapedGlyph& glyph : shapeLine(string, attributes).glyphs) {
        geometry::BezierPath outline = glyph.face->outline(glyph.glyph, attributes.size);
        if (glyph.glyph == 0 && outline.isEmpty())
            outline = missingGlyphFrame(glyph.advance, attributes.size);
        glm::mat3x2 shift(1.0f);
        shift[2] = {glyph.pen + glyph.offsetX, glyph.offsetY};
        outline.transform(shift);
        path.append(outline);
    }
    return path;
}

} // namespace zelvo::text
