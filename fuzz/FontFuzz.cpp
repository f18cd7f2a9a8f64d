// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"
#include "platform/geometry/Extrusion.h"
#include "platform/text/FontFace.h"
#include "platform/text/LineLayout.h"

#include <cstdint>
#include <string>

namespace {

using zelvo::geometry::BezierPath;

constexpr const char* kLetters = "Ag8&@_";
constexpr std::size_t kMaxElements = 40;

// Outlines of any shape have their own target, so one solid is enough here: that of the letter with
// the longest outline that is still quick.
BezierPath letterForSolid(const zelvo::text::TextAttributes& attributes) {
    BezierPath chosen;
    for (const std::string& character : zelvo::text::charactersOf(kLetters)) {
        BezierPath outline = zelvo::text::outlineOf(character, attributes);
        const std::size_t count = outline.elements().size();
        if (count <= kMaxElements && count > chosen.elements().size())
            chosen = std::move(outline);
    }
    return chosen;
}

} // namespace

// Any bytes as a font file: names, widths, shaping, outlines, and a letter as a solid with a bevel.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kMaxBytes = 64U << 10U;
    if (size > kMaxBytes)
        return 0;
    const auto faces = zelvo::text::readFaces(std::string(data, data + size));
    if (!faces)
        return 0;
    zelvo::text::TextAttributes attributes;
    attributes.font = faces->front();
    const auto placed = zelvo::text::layoutLine(kLetters, attributes);
    CHECK(placed.size() == 6, "{} letters of 6 stand on the line", placed.size());
    zelvo::geometry::ExtrusionOptions options;
    options.chamferRadius = 2;
    options.flatness = 20; // few chords even if a damaged em makes the letter huge
    (void)zelvo::geometry::extrude(letterForSolid(attributes), options);
    return 0;
}
