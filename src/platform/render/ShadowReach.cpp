// SPDX-License-Identifier: MIT
#include "platform/render/ShadowReach.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <glm/matrix.hpp>

#include <array>
#include <cmath>

namespace zelvo::render {
namespace {

/// If shadows cover less of the picture than this, casters are not looked at one by one.
constexpr double kWorthASecondLook = 0.02;
constexpr float kMinDistance = 1e-3f; ///< scene units from the plane of the eye

using Corners = std::array<glm::vec3, 8>;

/// A face cut by planes. Each cut adds at most one corner.
struct Polygon {
    std::array<glm::vec3, 16> points{};
    std::size_t count = 0;

    void add(const glm::vec3& point) { points.at(count++) = point; }
};

Corners cornersOf(const geometry::Box& box, const glm::mat4& world) {
    Corners corners{};
    for (unsigned i = 0; i < corners.size(); ++i) {
        const glm::vec3 corner(
            (i & 1U) != 0 ? box.max.x : box.min.x,
            (i & 2U) != 0 ? box.max.y : box.min.y,
            (i & 4U) != 0 ? box.max.z : box.min.z);
        corners.at(i) = glm::vec3(world * glm::vec4(corner, 1));
    }
    return corners;
}

Corners cornersOf(const VisibleNode& node) {
    return cornersOf(node.geometry->boundingBox(), node.world);
}

/// The box's faces: indices into cornersOf, in order around the face.
// clang-format off
constexpr auto kFaces = std::to_array<std::array<std::size_t, 4>>({
    {0, 1, 3, 2},
    {4, 5, 7, 6},
    {0, 1, 5, 4},
    {2, 3, 7, 6},
    {0, 2, 6, 4},
    {1, 3, 7, 5}
});

// clang-format on

Polygon polygonOf(const Corners& corners, const std::array<std::size_t, 4>& face) {
    Polygon polygon;
    for (const std::size_t corner : face) {
        polygon.add(corners.at(corner));
    }
    return polygon;
}

glm::vec4 rowOf(const glm::mat4& matrix, int row) {
    return {matrix[0][row], matrix[1][row], matrix[2][row], matrix[3][row]};
}

/// Sutherland and Hodgman 1974, "Reentrant Polygon Clipping". Keeps the part in front of the plane.
Polygon clipped(const Polygon& polygon, const glm::vec4& plane) {
    Polygon result;
    for (std::size_t i = 0; i < polygon.count; ++i) {
        const glm::vec3& a = polygon.points.at(i);
        const glm::vec3& b = polygon.points.at((i + 1) % polygon.count);
        const float beforeA = glm::dot(plane, glm::vec4(a, 1));
        const float beforeB = glm::dot(plane, glm::vec4(b, 1));
        if (beforeA >= 0)
            result.add(a);
        if ((beforeA >= 0) != (beforeB >= 0))
            result.add(glm::mix(a, b, beforeA / (beforeA - beforeB)));
    }
    return result;
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
    for (const auto& face : kFaces) {
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
    const Corners corners = cornersOf(node);
    const std::array<glm::vec4, 6> planes = planesOf(view);
    ScreenBounds seen(camera, picture);
    for (const auto& face : kFaces) {
        Polygon polygon = polygonOf(corners, face);
        for (const glm::vec4& plane : planes) {
            polygon = clipped(polygon, plane);
        }
        seen.include(polygon);
    }
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
