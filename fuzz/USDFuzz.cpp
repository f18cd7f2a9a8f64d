// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"
#include "platform/usd/USDReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A short input can ask for as much work as the limits allow.
    zelvo::usd::Limits limits;
    limits.unpackedBytes = 1U << 20U;
    limits.valueBytes = 1U << 20U;
    limits.prims = 300;
    limits.sites = 3000;
    limits.corners = 3000;
    const auto scene = zelvo::usd::readUSD({data, size}, {}, limits);
    if (!scene)
        return 0;
    for (const auto& placement : scene->placements)
        CHECK(placement.piece < scene->pieces.size(), "no piece {}", placement.piece);
    for (const auto& piece : scene->pieces) {
        CHECK(!piece.material || *piece.material < scene->materials.size(), "no such material");
        for (const std::uint32_t index : piece.mesh.indices)
            CHECK(index < piece.mesh.vertices.size(), "no vertex {}", index);
    }
    return 0;
}
