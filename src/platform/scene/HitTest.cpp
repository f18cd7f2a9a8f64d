// SPDX-License-Identifier: MIT
#include "platform/scene/HitTest.h"

#include "platform/geometry/TriangleTree.h"
#include "platform/scene/MaterialOpacity.h"

#include <glm/matrix.hpp>

#include <algorithm>

namespace zelvo::scene {

namespace {

/// What is less opaque than this cannot be touched.
constexpr float kSeen = 0.1f;

std::size_t elementOf(const geometry::Mesh& mesh, std::uint32_t triangle) {
    const std::uint32_t index = 3 * triangle;
    const auto found = std::ranges::find_if(mesh.elements, [index](const auto& element) {
        return index >= element.firstIndex && index < element.firstIndex + element.indexCount;
    });
    return static_cast<std::size_t>(found - mesh.elements.begin());
}

glm::vec2 textureCoordinates(const geometry::Mesh& mesh, const geometry::RayHit& hit) {
    const auto corner = [&](std::size_t i) {
        return mesh.vertices[mesh.indices[3 * std::size_t{hit.triangle} + i]].uv;
    };
    const float rest = 1 - hit.weights.x - hit.weights.y;
    return rest * corner(0) + hit.weights.x * corner(1) + hit.weights.y * corner(2);
}

class Search {
public:
    explicit Search(const geometry::Ray& given)
        : ray(given) {}

    void visit(SCNNode& node, const glm::mat4& parentToWorld) {
        if (node.isHidden)
            return;
        const glm::mat4 toWorld = parentToWorld * node.transform();
        if (node.geometry)
            test(node, toWorld);
        for (const SCNNodePtr& child : node.childNodes())
            visit(*child, toWorld);
    }

    std::optional<SCNHitTestResult> best;

private:
    void test(SCNNode& node, const glm::mat4& toWorld) {
        if (glm::determinant(glm::mat3(toWorld)) == 0) // squeezed flat
            return;
        const glm::mat4 fromWorld = glm::inverse(toWorld);
        // Not made a unit vector, so that distances are the same in both spaces.
        const geometry::Ray own{
            glm::vec3(fromWorld * glm::vec4(ray.origin, 1)),
            glm::vec3(fromWorld * glm::vec4(ray.direction, 0))};
        const SCNGeometry& geometry = *node.geometry;
        const geometry::Mesh& mesh = geometry.mesh();
        const auto isSeen = [&](const geometry::RayHit& hit) {
            if (best && hit.distance >= best->distance)
                return false;
            const SCNMaterial* material = geometry.materialFor(elementOf(mesh, hit.triangle));
            if (material == nullptr)
                return hit.isFront;
            return (hit.isFront || material->isDoubleSided) &&
                   opacityAt(*material, textureCoordinates(mesh, hit)) >= kSeen;
        };
        if (const auto hit = geometry.triangles().nearest(own, isSeen)) {
            best = SCNHitTestResult{
                node.shared_from_this(),
                hit->distance,
                elementOf(mesh, hit->triangle),
                textureCoordinates(mesh, *hit)};
        }
    }

    geometry::Ray ray;
};

} // namespace

std::optional<SCNHitTestResult>
hitTest(SCNNode& root, const geometry::Ray& ray, const glm::mat4& parentToWorld) {
    Search search(ray);
    search.visit(root, parentToWorld);
    return search.best;
}

} // namespace zelvo::scene
