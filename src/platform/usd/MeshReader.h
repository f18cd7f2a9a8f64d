// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/Polygons.h"
#include "platform/usd/Primvar.h"
#include "platform/usd/Stage.h"
#include "platform/usd/Surface.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zelvo::usd {

/// Makes polygons of one mesh. Faces that are holes, or refer to points that are not there, are left
/// out.
class MeshReader {
public:
    MeshReader(const Prim& prim, SurfaceReader& source)
        : mesh(prim)
        , surfaces(source) {}

    [[nodiscard]] object::Polygons read();

private:
    struct Face {
        std::size_t number = 0; ///< in the file, also of the faces that are left out
        std::size_t firstCorner = 0;
        std::size_t cornerCount = 0;
    };

    /// The texture coordinates of one primvar, and where they begin among all.
    struct Coordinates {
        Primvar values;
        std::uint32_t first = 0;
    };

    /// What colours faces: a primvar, where it has a value.
    struct Colors {
        std::optional<Primvar> color;
        std::vector<glm::u8vec4> table; ///< of the primvar's values
        std::optional<Primvar> opacity;
        std::vector<std::uint8_t> opacities;
        glm::u8vec4 plain{255}; ///< where there is no value

        [[nodiscard]] glm::u8vec4 at(const CornerPlace& place) const;
    };

    /// What faces with one surface have in common. Each may be null.
    struct Style {
        const Surface* surface = nullptr;
        const Coordinates* coordinates = nullptr;
        const Colors* colors = nullptr; ///< null: white
    };

    void readPoints();
    void readFaces();
    [[nodiscard]] bool isSound(const Face& face) const;
    void assignSurfaces();
    void readNormals();
    void addFace(const Face& face, const Style& style);
    [[nodiscard]] const Coordinates* coordinatesFor(const Surface* surface);
    [[nodiscard]] std::optional<Primvar> readCoordinates(const std::string& asked) const;
    [[nodiscard]] const Colors* colorsFor(const Surface* surface);

    const Prim& mesh;
    SurfaceReader& surfaces;
    object::Polygons polygons;
    IntArray indices;
    std::vector<Face> faces;
    MeshCounts counts;
    std::vector<const Surface*> surfaceOf; ///< by a face's number; null: none
    bool hasColors = false;
    bool isReversed = false;
    bool isFaceted = false;
    std::optional<Primvar> normals;
    std::map<std::string, std::optional<Coordinates>> coordinates;
    std::map<std::string, Colors> colors; ///< by primvar; the empty name: without a material
};

} // namespace zelvo::usd
