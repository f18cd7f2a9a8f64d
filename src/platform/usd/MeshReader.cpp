// SPDX-License-Identifier: MIT
#include "platform/usd/MeshReader.h"

#include "platform/usd/DisplayColor.h"
#include "platform/usd/MaterialBinding.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace zelvo::usd {

using object::Polygons;

namespace {

template <class Vector> bool isFinite(const Vector& v) {
    for (int i = 0; i < Vector::length(); ++i) {
        if (!std::isfinite(v[i]))
            return false;
    }
    return true;
}

} // namespace

void MeshReader::readPoints() {
    const auto values = mesh.floats("points", 3);
    if (values == nullptr)
        return;
    const auto& v = values->values;
    counts.points = std::min(v.size() / 3, object::Limits::kMaxPoints);
    polygons.points.reserve(counts.points);
    for (std::size_t i = 0; i < counts.points; ++i)
        polygons.points.emplace_back(v[i * 3], v[i * 3 + 1], v[i * 3 + 2]);
}

void MeshReader::readFaces() {
    indices = mesh.ints("faceVertexIndices");
    const IntArray sizes = mesh.ints("faceVertexCounts");
    std::vector<bool> isHole(sizes.size(), false);
    for (const std::int32_t hole : mesh.ints("holeIndices")) {
        if (hole >= 0 && static_cast<std::size_t>(hole) < isHole.size())
            isHole[static_cast<std::size_t>(hole)] = true;
    }
    faces.reserve(sizes.size());
    Face face;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        if (sizes[i] < 0)
            break; // nobody can tell where the next one begins
        face.number = i;
        face.cornerCount = static_cast<std::size_t>(sizes[i]);
        if (face.firstCorner + face.cornerCount > indices.size())
            break;
        if (!isHole[i] && isSound(face))
            faces.push_back(face);
        face.firstCorner += face.cornerCount;
    }
    counts.faces = sizes.size();
    counts.corners = indices.size();
}

bool MeshReader::isSound(const Face& face) const {
    for (std::size_t i = face.firstCorner; i < face.firstCorner + face.cornerCount; ++i) {
        const std::int32_t point = indices[i];
        if (point < 0 || static_cast<std::size_t>(point) >= polygons.points.size() ||
            !isFinite(polygons.points[static_cast<std::size_t>(point)]))
            return false;
    }
    return face.cornerCount >= 3;
}

/// The first subset that names a face decides; the mesh itself for all others.
void MeshReader::assignSurfaces() {
    const auto surfaceAt = [this](const Prim& prim) -> const Surface* {
        const std::string path = boundMaterial(prim);
        return path.empty() ? nullptr : surfaces.read(path);
    };
    surfaceOf.assign(counts.faces, nullptr);
    std::vector<bool> isTaken(counts.faces, false);
    for (const auto& subset : mesh.children) {
        const std::string element = subset->text("elementType");
        if (subset->typeName != "GeomSubset" || !bindsMaterial(*subset) ||
            (!element.empty() && element != "face"))
            continue;
        const Surface* surface = surfaceAt(*subset);
        for (const std::int32_t index : subset->ints("indices")) {
            const auto face = static_cast<std::size_t>(index);
            if (index < 0 || face >= counts.faces || isTaken[face])
                continue;
            isTaken[face] = true;
            surfaceOf[face] = surface;
        }
    }
    if (std::ranges::find(isTaken, false) != isTaken.end()) {
        const Surface* own = surfaceAt(mesh);
        for (std::size_t face = 0; face < counts.faces; ++face) {
            if (!isTaken[face])
                surfaceOf[face] = own;
        }
    }
    hasColors = std::ranges::any_of(surfaceOf, [](const Surface* surface) {
        return surface == nullptr || !surface->colorName.empty();
    });
}

void MeshReader::readNormals() {
    for (const char* name : {"primvars:normals", "normals"}) {
        if (!normals)
            normals = Primvar::read(mesh, name, 3, counts);
    }
    if (!normals)
        return;
    const auto& v = normals->values().values;
    polygons.normals.reserve(v.size() / 3);
    for (std::size_t i = 0; i + 3 <= v.size(); i += 3) {
        const glm::vec3 normal(v[i], v[i + 1], v[i + 2]);
        polygons.normals.push_back(isFinite(normal) ? normal : glm::vec3(0));
    }
}

/// What the material asks for; without that, the usual name, otherwise the first that fits.
std::optional<Primvar> MeshReader::readCoordinates(const std::string& asked) const {
    constexpr std::string_view kStart = "primvars:";
    std::vector<std::string> names;
    if (!asked.empty())
        names.push_back(fmt::format("{}{}", kStart, asked));
    names.emplace_back("primvars:st");
    std::ranges::copy(mesh.namesBeginning(kStart), std::back_inserter(names));
    for (const std::string& name : names) {
        if (auto primvar = Primvar::read(mesh, name, 2, counts))
            return primvar;
    }
    return std::nullopt;
}

const MeshReader::Coordinates* MeshReader::coordinatesFor(const Surface* surface) {
    const std::string asked = surface == nullptr ? std::string() : surface->uvName;
    const auto [place, isNew] = coordinates.try_emplace(asked);
    if (!isNew)
        return place->second ? &*place->second : nullptr;
    auto primvar = readCoordinates(asked);
    if (!primvar)
        return nullptr;
    const auto& v = primvar->values().values;
    const auto first = static_cast<std::uint32_t>(polygons.uvs.size());
    polygons.uvs.reserve(first + v.size() / 2);
    for (std::size_t i = 0; i + 2 <= v.size(); i += 2) {
        const glm::vec2 uv(v[i], 1 - v[i + 1]);
        polygons.uvs.push_back(isFinite(uv) ? uv : glm::vec2(0));
    }
    place->second = Coordinates{*std::move(primvar), first};
    return &*place->second;
}

/// Colours are converted once each, not for every corner.
const MeshReader::Colors* MeshReader::colorsFor(const Surface* surface) {
    if (surface != nullptr && surface->colorName.empty())
        return nullptr;
    const auto [place, isNew] = colors.try_emplace(surface == nullptr ? "" : surface->colorName);
    Colors& made = place->second;
    if (!isNew)
        return &made;
    if (surface == nullptr)
        made.plain = displayColor(glm::vec3(kPlainGray), 1);
    const std::string name = surface == nullptr ? "displayColor" : surface->colorName;
    made.color = Primvar::read(mesh, fmt::format("primvars:{}", name), 3, counts);
    if (made.color) {
        const auto& v = made.color->values().values;
        for (std::size_t i = 0; i + 3 <= v.size(); i += 3)
            made.table.push_back(displayColor({v[i], v[i + 1], v[i + 2]}, 1));
    }
    if (surface == nullptr)
        made.opacity = Primvar::read(mesh, "primvars:displayOpacity", 1, counts);
    if (made.opacity) {
        for (const float share : made.opacity->values().values)
            made.opacities.push_back(displayColor(glm::vec3(0), share).a);
    }
    return &made;
}

glm::u8vec4 MeshReader::Colors::at(const CornerPlace& place) const {
    glm::u8vec4 result = plain;
    if (const auto index = color ? color->indexAt(place) : std::nullopt)
        result = table[*index];
    if (const auto index = opacity ? opacity->indexAt(place) : std::nullopt)
        result.a = opacities[*index];
    return result;
}

void MeshReader::addFace(const Face& face, const Style& style) {
    const auto& [surface, uvs, tint] = style;
    for (std::size_t i = 0; i < face.cornerCount; ++i) {
        const std::size_t corner = face.firstCorner + (isReversed ? face.cornerCount - 1 - i : i);
        const auto point = static_cast<std::size_t>(indices[corner]);
        const CornerPlace place{point, face.number, corner};
        Polygons::Corner added{static_cast<std::uint32_t>(point)};
        if (const auto at = uvs == nullptr ? std::nullopt : uvs->values.indexAt(place))
            added.uv = uvs->first + *at;
        if (normals)
            added.normal = normals->indexAt(place).value_or(Polygons::kNone);
        polygons.corners.push_back(added);
        if (hasColors)
            polygons.cornerColors.push_back(tint == nullptr ? glm::u8vec4(255) : tint->at(place));
    }
    polygons.faces.push_back(
        {static_cast<std::uint32_t>(face.cornerCount),
         surface == nullptr ? Polygons::kNone : static_cast<std::uint32_t>(surface->material),
         isFaceted ? Polygons::kFlat : Polygons::kByAngle});
}

Polygons MeshReader::read() {
    readPoints();
    readFaces();
    assignSurfaces();
    readNormals();
    polygons.faces.reserve(faces.size());
    polygons.corners.reserve(indices.size());
    polygons.cornerColors.reserve(hasColors ? indices.size() : 0);
    isReversed = mesh.text("orientation") == "leftHanded";
    isFaceted = mesh.text("subdivisionScheme") == "none";
    const auto styleOf = [this](const Surface* surface) {
        return Style{surface, coordinatesFor(surface), hasColors ? colorsFor(surface) : nullptr};
    };
    Style style = styleOf(faces.empty() ? nullptr : surfaceOf[faces.front().number]);
    for (const Face& face : faces) {
        if (surfaceOf[face.number] != style.surface)
            style = styleOf(surfaceOf[face.number]);
        addFace(face, style);
    }
    // No face uses these any more.
    for (glm::dvec3& point : polygons.points) {
        if (!isFinite(point))
            point = glm::dvec3(0);
    }
    return std::move(polygons);
}

} // namespace zelvo::usd
