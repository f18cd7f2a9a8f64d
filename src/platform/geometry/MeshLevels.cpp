// SPDX-License-Identifier: MIT
#include "platform/geometry/MeshLevels.h"

#include <meshoptimizer.h>

#include <cstddef>
#include <utility>

namespace zelvo::geometry {
namespace {

constexpr std::size_t kFewestTriangles = 4000;
/// Of the mesh's size. Coarser versions would be for objects that are only some pixels large.
constexpr float kMostError = 0.02F;
/// A version that saves less is not worth its memory.
constexpr double kLeastGain = 0.75;

MeshLevel halved(const Mesh& mesh, const std::vector<std::uint32_t>& indices) {
    MeshLevel level;
    level.indices.resize(indices.size());
    const float* positions = &mesh.vertices.front().position.x;
    level.indices.resize(meshopt_simplify(
        level.indices.data(),
        indices.data(),
        indices.size(),
        positions,
        mesh.vertices.size(),
        sizeof(Vertex),
        indices.size() / 2,
        kMostError,
        meshopt_SimplifyLockBorder,
        &level.error));
    return level;
}

} // namespace

std::vector<MeshLevel> coarserLevels(const Mesh& mesh, const std::function<bool()>& isStopped) {
    std::vector<MeshLevel> levels;
    if (mesh.elements.size() != 1 || mesh.vertices.empty())
        return levels;
    const float size = meshopt_simplifyScale(
        &mesh.vertices.front().position.x, mesh.vertices.size(), sizeof(Vertex));
    const std::vector<std::uint32_t>* finer = &mesh.indices;
    while (finer->size() >= 3 * kFewestTriangles && !(isStopped && isStopped())) {
        MeshLevel level = halved(mesh, *finer);
        if (static_cast<double>(level.indices.size()) >
            kLeastGain * static_cast<double>(finer->size()))
            break;
        level.error *= size;
        level.indices.shrink_to_fit();
        levels.push_back(std::move(level));
        finer = &levels.back().indices;
    }
    return levels;
}

} // namespace zelvo::geometry
