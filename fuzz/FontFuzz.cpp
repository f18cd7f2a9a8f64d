// SPDX-License-Identifier: MIT
#include "platform/geometry/Extrusion.h"
#include "platform/text/FontFace.h"
#include "platform/text/LineLayout.h"

#include <cstdint>
#include <string>

// Any bytes as a font file: names, shaping, outlines, and a letter as a solid with a bevel. Solids
// of long outlines take long and have their own target.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kMaxBytes = 64U << 10U;
    constexpr std::size_t kMaxElements = 40;
    if (size > kMaxBytes)
        return 0;
    const auto faces = zelvo::text::readFaces(std::string(data, data + size));
    if (!faces)
        return 0;
    zelvo::text::TextAttributes attributes;
    attributes.font = faces->front();
    zelvo::geometry::ExtrusionOptions options;
    options.chamferRadius = 2;
    std::size_t triangles = 0;
    for (const std::string& character : zelvo::text::charactersOf("Ag8&@_")) {
        const auto outline = zelvo::text::outlineOf(character, attributes);
        if (outline.elements().size() > kMaxElements)
            continue;
        triangles += zelvo::geometry::extrude(outline, options).indices.size();
    }
    return triangles % 3 == 0 ? 0 : 1;
}
