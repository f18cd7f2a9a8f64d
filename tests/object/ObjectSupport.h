// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/reading/OBJReader.h"

#include <glm/geometric.hpp>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace zelvo::object {

/// The object that this text describes.
inline ObjectScene objectOf(const std::string& text, const std::filesystem::path& folder = {}) {
    auto scene =
        readOBJ({sourceOf(text), text.size(), "thing.obj", NeighbourFiles(folder)}, Watch());
    if (scene)
        return *std::move(scene);
    ADD_FAILURE() << scene.error().message;
    return {};
}

/// The sum of all triangles' areas.
inline double areaOf(const ObjectScene& scene) {
    double area = 0;
    for (const Piece& piece : scene.pieces) {
        const auto at = [&](std::size_t i) {
            return glm::dvec3(piece.mesh.vertices[piece.mesh.indices[i]].position);
        };
        for (std::size_t i = 0; i < piece.mesh.indices.size(); i += 3)
            area += glm::length(glm::cross(at(i + 1) - at(i), at(i + 2) - at(i))) / 2;
    }
    return area;
}

} // namespace zelvo::object
