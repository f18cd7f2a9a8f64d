// SPDX-License-Identifier: MIT
#include "platform/object/ObjectScene.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace zelvo::object {

namespace {

/// The textures that a material uses, in any slot.
void markTextures(const Material& material, std::vector<bool>& used) {
    for (const std::optional<PictureUse>* use :
         {&material.baseColor.picture,
          &material.metalness.picture,
          &material.roughness.picture,
          &material.opacity.picture,
          &material.occlusion.picture,
          &material.emission.picture,
          &material.normal.picture}) {
        if (*use && (*use)->texture < used.size())
            used[(*use)->texture] = true;
    }
}

struct DoubleBox {
    glm::dvec3 min{std::numeric_limits<double>::max()};
    glm::dvec3 max{std::numeric_limits<double>::lowest()};

    void include(const Piece& piece, const glm::dmat4& transform) {
        for (const geometry::Vertex& vertex : piece.mesh.vertices) {
            const auto place = glm::dvec3(transform * glm::dvec4(vertex.position, 1));
            min = glm::min(min, place);
            max = glm::max(max, place);
        }
    }
};

} // namespace

glm::mat3 withVDownwards(const glm::mat3& upwards) {
    const glm::mat3 turned({1, 0, 0}, {0, -1, 0}, {0, 1, 1}); // v' = 1 - v
    return turned * upwards * turned;
}

void ObjectScene::warn(std::string line) {
    if (warnings.size() < kMaxWarnings && (warnings.empty() || warnings.back() != line))
        warnings.push_back(std::move(line));
}

void completeFigures(ObjectScene& scene) {
    std::vector<bool> usesMaterial(scene.materials.size(), false);
    std::vector<bool> usesTexture(scene.textures.size(), false);
    DoubleBox box;
    std::size_t corners = 0;
    for (const Placement& placement : scene.placements) {
        const Piece& piece = scene.pieces[placement.piece];
        corners += piece.mesh.indices.size();
        box.include(piece, placement.transform);
        if (!piece.material)
            continue;
        usesMaterial[*piece.material] = true;
        markTextures(scene.materials[*piece.material], usesTexture);
    }
    Figures& figures = scene.figures;
    figures.triangles = corners / 3;
    const auto count = [](const std::vector<bool>& used) {
        return static_cast<std::size_t>(std::ranges::count(used, true));
    };
    figures.materials = count(usesMaterial);
    figures.textures = count(usesTexture);
    const bool isEmpty = corners == 0;
    figures.boxMin = isEmpty ? glm::dvec3(0) : box.min;
    figures.boxMax = isEmpty ? glm::dvec3(0) : box.max;
}

foundation::Error cancelledError() {
    return {foundation::Cause::cancelled, "the reading was stopped"};
}

} // namespace zelvo::object
