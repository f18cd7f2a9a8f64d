// SPDX-License-Identifier: MIT
#include "platform/scene/SCNReferenceNode.h"

#include "platform/geometry/ClosedSolid.h"
#include "platform/geometry/MeshLevels.h"
#include "platform/object/reading/ObjectReader.h"
#include "platform/scene/ObjectBatches.h"
#include "platform/scene/ObjectNodes.h"

#include <utility>

namespace zelvo::scene {

using foundation::Result;

namespace {

constexpr double kReadingShare = 0.7; ///< of the time, by and large

/// A step's own share as one of the whole.
[[nodiscard]] object::Watch watchOf(const LoadWatch& watch, LoadStep step) {
    object::Watch result{watch.stop, {}};
    if (!watch.isAdvanced)
        return result;
    result.isAdvanced = [&tell = watch.isAdvanced, step](double share) {
        const bool isReading = step == LoadStep::reading;
        tell(
            {step,
             isReading ? share * kReadingShare : kReadingShare + share * (1 - kReadingShare)});
    };
    return result;
}

/// Finds out how few triangles can be drawn where the mesh is small, or seen from outside.
void saveTriangles(geometry::Mesh& mesh, const std::stop_token& stop) {
    constexpr std::size_t kFewest = 3 * 4000;  // indices; below, nothing is to be gained
    constexpr std::size_t kMost = 3 * 500'000; // above, loading would take seconds longer
    if (mesh.indices.size() < kFewest || mesh.indices.size() > kMost || stop.stop_requested())
        return;
    mesh.isClosedSolid = geometry::isClosedSolid(mesh);
    mesh.coarser = geometry::coarserLevels(mesh, [&stop] { return stop.stop_requested(); });
}

} // namespace

Result<ReadObject> readObjectFile(const std::filesystem::path& file, const LoadWatch& watch) {
    auto scene = object::readObject(file, watchOf(watch, LoadStep::reading));
    if (!scene)
        return tl::unexpected(scene.error());
    ReadObject read{std::move(*scene), {}};
    joinSmallPieces(read.scene);
    for (object::Piece& piece : read.scene.pieces)
        saveTriangles(piece.mesh, watch.stop);
    read.materials = materialsOf(read.scene, watchOf(watch, LoadStep::pictures));
    if (watch.stop.stop_requested())
        return tl::unexpected(object::cancelledError());
    return read;
}

Result<void> SCNReferenceNode::load() {
    auto read = readObjectFile(file_);
    if (!read)
        return tl::unexpected(read.error());
    load(std::move(*read));
    return {};
}

void SCNReferenceNode::load(ReadObject read) {
    figures_ = read.scene.figures;
    warnings_ = std::move(read.scene.warnings);
    const std::vector<SCNNodePtr> former = childNodes();
    for (const SCNNodePtr& child : former)
        child->removeFromParentNode();
    const std::vector<SCNNodePtr> made =
        nodeOf(std::move(read.scene), read.materials)->childNodes();
    for (const SCNNodePtr& child : made)
        addChildNode(child);
}

} // namespace zelvo::scene
