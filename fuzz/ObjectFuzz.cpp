// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"
#include "platform/object/reading/GLTFReader.h"
#include "platform/object/reading/MTLLibrary.h"
#include "platform/object/reading/OBJReader.h"
#include "platform/object/reading/STLReader.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

namespace {

using namespace zelvo::object;

/// What a renderer relies on.
void checkScene(const ObjectScene& scene) {
    for (const Placement& placement : scene.placements)
        CHECK(placement.piece < scene.pieces.size(), "no piece {}", placement.piece);
    for (const Piece& piece : scene.pieces) {
        const auto count = piece.mesh.vertices.size();
        CHECK(piece.mesh.indices.size() % 3 == 0 && !piece.mesh.indices.empty(), "half a triangle");
        CHECK(std::ranges::max(piece.mesh.indices) < count, "no vertex for an index");
        CHECK(piece.colors.empty() || piece.colors.size() == count, "vertices without colour");
        CHECK(!piece.material || *piece.material < scene.materials.size(), "no such material");
        for (const auto& vertex : piece.mesh.vertices) {
            const float sum = vertex.position.x + vertex.normal.y + vertex.tangent.z;
            CHECK(std::isfinite(sum), "a vertex at no place");
        }
    }
}

void readMaterials(std::string_view text) {
    MTLLibrary library;
    library.read(sourceOf(text));
    ObjectScene scene;
    NeighbourFiles nothing{{}};
    for (const char* name : {"", "m", "a b"})
        (void)library.material(name, nothing, scene);
}

} // namespace

// Any bytes as a 3D file. They are read as the format that they look like; as OBJ and as a library
// of materials if they look like nothing else.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const bool isGLTF = text.starts_with("glTF") || text.starts_with('{');
    const bool isSTL = text.starts_with("solid") || text.starts_with("STLB");
    zelvo::foundation::Result<ObjectScene> scene;
    if (isGLTF) {
        scene = readGLTF({data, size}, NeighbourFiles({}), {});
    } else if (isSTL) {
        scene = readSTL(sourceOf(text), size, "a", {});
    } else {
        scene = readOBJ({sourceOf(text), size, "a.obj", NeighbourFiles({})}, {});
        readMaterials(text);
    }
    if (scene)
        checkScene(*scene);
    return 0;
}
