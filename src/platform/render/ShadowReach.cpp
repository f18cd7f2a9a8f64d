// SPDX-License-Identifier: MIT
#include "platform/render/ShadowReach.h"

#include "platform/render/BoxFaces.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <glm/matrix.hpp>

#include <cmath>
#include <span>

namespace zelvo::render {
namespace {

/// If shadows cover less of the picture than this, casters are not looked at one by one.
constexpr double kWorthASecondLook = 0.02;
/// A node with few triangles is a part of the stage, which can be large and mostly empty within its
/// box. So its triangles are looked at one by one.
constexpr std::size_t kFewIndices = std::size_t{3} * 300;
constexpr float kMinDistance = 1e-3f; ///< scene units from the plane of the eye

glm::vec4 rowOf(const glm::mat4& matrix, int row) {
    return {matrix[0][row], matrix[1][row], matrix[2][row], matrix[3][row]};
}

Polygon clipped(Polygon polygon, std::span<const glm::vec4> planes) {
    for (std::size_t i = 0; i < planes.size() && polygon.count > 0; ++i)
        polygon = clipped(polygon, planes[i]);
    return polygon;
}

Polygon triangleOf(const VisibleNode& node, std::size_t first) {
    const geometry::Mesh& mesh = node.geometry->mesh();
    Polygon triangle;
    for (std::size_t i = first; i < first + 3; ++i)
        triangle.add(glm::vec3(node.world * glm::vec4(mesh.vertices[mesh.indices[i]].position, 1)));
    return triangle;
}

/// Collects the bounds of polygons on screen.
class ScreenBounds {
public:
    ScreenBounds(const CameraView& cameraView, Size pictureSize)
        : camera(cameraView)
        , picture(pictureSize)
        , eye(rowOf(camera.viewProjection, 3) - glm::vec4(0, 0, 0, kMinDistance)) {}

    void include(const Polygon& polygon) {
        const Polygon seen = clipped(polygon, eye);
        for (std::size_t i = 0; i < seen.count; ++i) {
            const glm::vec3& point = seen.points.at(i);
            const glm::vec4 clip = camera.viewProjection * glm::vec4(point, 1);
            const glm::vec2 at(
                (clip.x / clip.w + 1) * 0.5f * static_cast<float>(picture.width),
                (1 - clip.y / clip.w) * 0.5f * static_cast<float>(picture.height));
            least = glm::min(least, at);
            most = glm::max(most, at);
        }
    }

    [[nodiscard]] PixelRect rect() const {
        if (least.x > most.x)
            return {};
        // Clamped before rounding, because points near the plane of the eye project very far out.
        const glm::vec2 end(picture.width, picture.height);
        const glm::vec2 first = glm::clamp(glm::floor(least) - 1.0f, glm::vec2(0), end);
        const glm::vec2 last = glm::clamp(glm::ceil(most) + 1.0f, glm::vec2(0), end);
        return {
            static_cast<int>(first.x),
            static_cast<int>(first.y),
            static_cast<int>(last.x),
            static_cast<int>(last.y)};
    }

private:
    const CameraView& camera;
    Size picture;
    glm::vec4 eye;
    glm::vec2 least{INFINITY};
    glm::vec2 most{-INFINITY};
};

PixelRect boundsOnScreen(const Corners& corners, const CameraView& camera, Size picture) {
    ScreenBounds seen(camera, picture);
    for (const auto& face : kBoxFaces) {
        seen.include(polygonOf(corners, face));
    }
    return seen.rect();
}

/// The six planes around the space that the casters can shade, normals inwards. They are moved out
/// by as much as the shader moves its lookup.
std::array<glm::vec4, 6> planesOf(const ShadowView& view) {
    const glm::vec4 x = rowOf(view.toTexture, 0);
    const glm::vec4 y = rowOf(view.toTexture, 1);
    const glm::vec4 z = rowOf(view.toTexture, 2);
    const glm::vec4 w = rowOf(view.toTexture, 3);
    std::array<glm::vec4, 6> planes{
        x - view.bounds.x * w,
        view.bounds.z * w - x,
        y - view.bounds.y * w,
        view.bounds.w * w - y,
        view.nearest * w - z, // depth is reversed
        w};
    for (glm::vec4& plane : planes) {
        plane.w += view.receiverShift * glm::length(glm::vec3(plane));
    }
    return planes;
}

} // namespace

geometry::Box worldBox(const VisibleNode& node) {
    geometry::Box box;
    for (const glm::vec3& corner : cornersOf(node))
        box.include(corner);
    return box;
}

PixelRect boundsOnScreen(const VisibleNode& node, const CameraView& camera, Size picture) {
    return boundsOnScreen(cornersOf(node), camera, picture);
}

PixelRect boundsOnScreen(const geometry::Box& box, const CameraView& camera, Size picture) {
    return boundsOnScreen(cornersOf(box, glm::mat4(1)), camera, picture);
}

PixelRect shadowOnScreen(
    const VisibleNode& node, const ShadowView& view, const CameraView& camera, Size picture) {
    if (view.bounds.z <= view.bounds.x || view.bounds.w <= view.bounds.y)
        return {};
    const std::array<glm::vec4, 6> planes = planesOf(view);
    ScreenBounds seen(camera, picture);
    const geometry::Mesh& mesh = node.geometry->mesh();
    if (mesh.indices.size() <= kFewIndices) {
        for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3)
            seen.include(clipped(triangleOf(node, i), planes));
        return seen.rect();
    }
    const Corners corners = cornersOf(node);
    for (const auto& face : kBoxFaces)
        seen.include(clipped(polygonOf(corners, face), planes));
    // A large box can contain the near end of the rays, so that end counts, too.
    const glm::mat4 fromMap = glm::inverse(view.toTexture);
    Polygon beginning;
    for (const glm::vec2 corner :
         {glm::vec2(view.bounds.x, view.bounds.y),
          glm::vec2(view.bounds.z, view.bounds.y),
          glm::vec2(view.bounds.z, view.bounds.w),
          glm::vec2(view.bounds.x, view.bounds.w)}) {
        const glm::vec4 point = fromMap * glm::vec4(corner, view.nearest, 1);
        beginning.add(glm::vec3(point) / point.w);
    }
    const glm::mat4 toNode = glm::inverse(node.world);
    const geometry::Box box = node.geometry->boundingBox();
    for (int axis = 0; axis < 3; ++axis) {
        const glm::vec4 along = rowOf(toNode, axis);
        beginning = clipped(beginning, along - glm::vec4(0, 0, 0, box.min[axis]));
        beginning = clipped(beginning, glm::vec4(0, 0, 0, box.max[axis]) - along);
    }
    seen.include(beginning);
    return seen.rect();
}

PixelRect shadowReach(
    const VisibleNode& node, const ShadowView& view, const Snapshot& snapshot, Size picture) {
    const CameraView& camera = snapshot.camera();
    const PixelRect rough = shadowOnScreen(node, view, camera, picture);
    if (rough.area() < kWorthASecondLook * PixelRect::whole(picture).area())
        return rough;
    PixelRect close;
    for (const VisibleNode& caster : snapshot.nodes()) {
        if (casts(caster, *snapshot.lights()[view.light].light))
            close = close.united(shadowOnScreen(node, boundedTo(caster, view), camera, picture));
    }
    return close.intersected(rough);
}

} // namespace zelvo::render
