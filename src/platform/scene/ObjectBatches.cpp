// SPDX-License-Identifier: MIT
#include "platform/scene/ObjectBatches.h"

#include <glm/geometric.hpp>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/matrix.hpp>

#include <cstdint>
#include <map>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

namespace zelvo::scene {

using object::ObjectScene;
using object::Piece;
using object::Placement;

namespace {

constexpr std::size_t kManyPlacements = 64;
constexpr std::size_t kSmallCorners = 30'000;        ///< of a piece: 10,000 triangles
constexpr std::size_t kMaxJoinedCorners = 6'000'000; ///< of all; copies of pieces need memory

/// Which pieces can be one: those with the same key.
using Key = std::tuple<std::optional<std::size_t>, bool, bool>;

[[nodiscard]] Key keyOf(const Piece& piece) {
    return {piece.material, piece.isDoubleSided, piece.colors.empty()};
}

[[nodiscard]] bool isSeenThrough(const ObjectScene& scene, const Piece& piece) {
    for (const glm::u8vec4& color : piece.colors) {
        if (color.a < 255)
            return true;
    }
    if (!piece.material)
        return false;
    const object::Material& material = scene.materials[*piece.material];
    return material.cutOutBelow <= 0 &&
           (material.opacity.picture.has_value() || material.opacity.factor < 1);
}

/// Adds the piece as it stands at this place.
void append(Piece& target, const Piece& piece, const glm::dmat4& transform) {
    geometry::Mesh& mesh = target.mesh;
    const auto first = static_cast<std::uint32_t>(mesh.vertices.size());
    const glm::dmat3 turn(transform);
    const glm::dmat3 turnNormals = glm::transpose(glm::inverse(turn));
    const bool isMirrored = glm::determinant(turn) < 0;
    for (geometry::Vertex vertex : piece.mesh.vertices) {
        vertex.position = glm::vec3(transform * glm::dvec4(vertex.position, 1));
        vertex.normal = glm::vec3(glm::normalize(turnNormals * glm::dvec3(vertex.normal)));
        const glm::dvec3 along = glm::normalize(turn * glm::dvec3(vertex.tangent));
        vertex.tangent =
            glm::vec4(glm::vec3(along), isMirrored ? -vertex.tangent.w : vertex.tangent.w);
        mesh.vertices.push_back(vertex);
    }
    target.colors.insert(target.colors.end(), piece.colors.begin(), piece.colors.end());
    const std::vector<std::uint32_t>& indices = piece.mesh.indices;
    for (std::size_t i = 0; i + 2 < indices.size(); i += 3) {
        mesh.indices.push_back(first + indices[i]);
        mesh.indices.push_back(first + indices[isMirrored ? i + 2 : i + 1]);
        mesh.indices.push_back(first + indices[isMirrored ? i + 1 : i + 2]);
    }
}

class Joiner {
public:
    explicit Joiner(ObjectScene& given)
        : scene(given)
        , middle((given.figures.boxMin + given.figures.boxMax) / 2.0)
        , isKept(given.pieces.size(), false)
        , isWhole(given.pieces.size()) {
        for (std::size_t i = 0; i < scene.pieces.size(); ++i)
            isWhole[i] = !isSeenThrough(scene, scene.pieces[i]);
    }

    void run() {
        std::vector<Placement> left;
        for (const Placement& placement : scene.placements) {
            if (!join(placement)) {
                isKept[placement.piece] = true;
                left.push_back(placement);
            }
        }
        // Pieces that nothing shows any more are dropped.
        std::vector<Piece> pieces;
        std::vector<std::size_t> numbers(scene.pieces.size());
        for (std::size_t i = 0; i < scene.pieces.size(); ++i) {
            numbers[i] = pieces.size();
            if (isKept[i])
                pieces.push_back(std::move(scene.pieces[i]));
        }
        for (Placement& placement : left)
            placement.piece = numbers[placement.piece];
        for (auto& [key, piece] : joined) {
            piece.mesh.elements = {{0, static_cast<std::uint32_t>(piece.mesh.indices.size())}};
            left.push_back({pieces.size(), glm::translate(glm::dmat4(1), middle)});
            pieces.push_back(std::move(piece));
        }
        scene.pieces = std::move(pieces);
        scene.placements = std::move(left);
    }

private:
    [[nodiscard]] bool join(const Placement& placement) {
        const Piece& piece = scene.pieces[placement.piece];
        const std::size_t corners = piece.mesh.indices.size();
        const bool fits = corners <= kSmallCorners && joinedCorners + corners <= kMaxJoinedCorners;
        if (!fits || !isWhole[placement.piece] || glm::determinant(placement.transform) == 0)
            return false;
        joinedCorners += corners;
        auto [entry, isNew] = joined.try_emplace(keyOf(piece));
        if (isNew) {
            entry->second.name = piece.name;
            entry->second.material = piece.material;
            entry->second.isDoubleSided = piece.isDoubleSided;
        }
        append(entry->second, piece, glm::translate(glm::dmat4(1), -middle) * placement.transform);
        return true;
    }

    ObjectScene& scene;
    glm::dvec3 middle; ///< the zero of the joined pieces
    std::vector<bool> isKept;
    std::vector<bool> isWhole; ///< nothing shows through
    std::map<Key, Piece> joined;
    std::size_t joinedCorners = 0;
};

} // namespace

void joinSmallPieces(ObjectScene& scene) {
    if (scene.placements.size() > kManyPlacements)
        Joiner(scene).run();
}

} // namespace zelvo::scene
