// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/ObjectScene.h"

#include <glm/gtc/type_precision.hpp>
#include <glm/trigonometric.hpp>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zelvo::object {

/// Polygons as files give them: of any number of corners, also concave, with attributes that have
/// indices of their own.
struct Polygons {
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;
    static constexpr std::uint32_t kFlat = 0; ///< smoothing: every face has its own normal
    /// Smoothing: over edges that are less bent than the crease angle.
    static constexpr std::uint32_t kByAngle = 0xFFFFFFFF;

    /// Indices into the lists below. `uv` and `normal` may be kNone.
    struct Corner {
        std::uint32_t point = 0;
        std::uint32_t uv = kNone;
        std::uint32_t normal = kNone;
    };

    /// The next corners of the list, counter-clockwise seen from outside.
    struct Face {
        std::uint32_t cornerCount = 0;
        std::uint32_t material = kNone; ///< index into ObjectScene::materials
        /// How normals are made for corners that have none: kFlat, kByAngle, or the number of a
        /// group. Faces of one group are smooth together.
        std::uint32_t smoothing = kByAngle;
    };

    std::vector<glm::dvec3> points;
    std::vector<glm::vec2> uvs;            ///< v downwards
    std::vector<glm::vec3> normals;        ///< of any length; zero counts as kNone
    std::vector<glm::u8vec4> pointColors;  ///< sRGB with alpha; one for each point, or none
    std::vector<glm::u8vec4> cornerColors; ///< one for each corner, or none
    std::vector<Corner> corners;
    std::vector<Face> faces;
};

/// Takes out what cannot be drawn: faces with a point out of range or with fewer than three corners.
/// Any other index out of range becomes kNone. Addition of pieces does this by itself.
void dropBrokenFaces(Polygons& polygons);

struct PieceOptions {
    std::string name; ///< of the pieces
    bool isDoubleSided = false;
    double creaseAngle = glm::radians(60.0); ///< for Polygons::kByAngle
};

/// The pieces made of one set of polygons, and where their zero is.
struct AddedPieces {
    std::size_t first = 0; ///< index into ObjectScene::pieces
    std::size_t count = 0; ///< none if nothing can be drawn
    glm::dvec3 origin{0};
};

/// Triangulates the polygons, makes missing normals and all tangents, joins equal vertices, and adds
/// a piece for each material in use. Places nothing: see place().
///
/// Faces with a point out of range or with fewer than three different corners are left out. Any
/// other index out of range counts as kNone. Takes the polygons, to free memory early. Error:
/// `cancelled`.
[[nodiscard]] foundation::Result<AddedPieces>
addPieces(ObjectScene& scene, Polygons polygons, const PieceOptions& options, const Watch& watch);

/// Adds placements of these pieces. `transform` is that of the polygons' own points to the scene.
void place(ObjectScene& scene, const AddedPieces& pieces, const glm::dmat4& transform);

} // namespace zelvo::object
