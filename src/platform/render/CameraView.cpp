// SPDX-License-Identifier: MIT
#include "platform/render/CameraView.h"

#include <glm/geometric.hpp>
#include <glm/matrix.hpp>
#include <glm/trigonometric.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::render {

glm::mat4 reversedPerspective(float fieldOfView, float aspect, float zNear, float zFar) {
    const float f = 1.0f / std::tan(fieldOfView * 0.5f);
    glm::mat4 m(0);
    m[0][0] = f / aspect;
    m[1][1] = f;
    m[2][2] = zNear / (zFar - zNear);
    m[2][3] = -1;
    m[3][2] = zNear * zFar / (zFar - zNear);
    return m;
}

glm::mat4 reversedOrthographic(float halfWidth, float halfHeight, float zNear, float zFar) {
    glm::mat4 m(1);
    m[0][0] = 1.0f / halfWidth;
    m[1][1] = 1.0f / halfHeight;
    m[2][2] = 1.0f / (zFar - zNear);
    m[3][2] = zFar / (zFar - zNear);
    return m;
}

CameraView
makeCameraView(const glm::mat4& nodeToWorld, const scene::SCNCamera& camera, float aspect) {
    CameraView result;
    result.position = glm::vec3(nodeToWorld[3]);
    for (int axis = 0; axis < 3; ++axis) {
        const glm::vec3 column(nodeToWorld[axis]);
        const float length = glm::length(column);
        if (length > 0)
            result.axes[axis] = column / length;
    }
    glm::mat4 placed(result.axes);
    placed[3] = glm::vec4(result.position, 1);
    result.view = glm::inverse(placed);
    result.projection = reversedPerspective(
        static_cast<float>(camera.verticalAngle(aspect)),
        aspect,
        static_cast<float>(camera.zNear),
        static_cast<float>(camera.zFar));
    result.viewProjection = result.projection * result.view;
    return result;
}

CameraView mirrored(const CameraView& camera, float height) {
    CameraView result = camera;
    glm::mat4 flip(1);
    flip[1][1] = -1;
    flip[3][1] = 2 * height;
    result.view = camera.view * flip;
    result.position = glm::vec3(flip * glm::vec4(camera.position, 1));
    // Lengyel 2005, "Oblique View Frustum Depth Projection and Clipping", for reversed depth: the
    // near plane, where depth equals w, is the mirror.
    const glm::vec4 above(0, 1, 0, -height);
    const glm::vec4 plane = glm::transpose(glm::inverse(result.view)) * above;
    float steepest = 1e-4f; // of the rays through the corners of the picture
    for (const float x : {-1.0f, 1.0f}) {
        for (const float y : {-1.0f, 1.0f}) {
            const glm::vec3 ray(x / camera.projection[0][0], y / camera.projection[1][1], -1);
            steepest = std::max(steepest, glm::dot(glm::vec3(plane), ray));
        }
    }
    for (int column = 0; column < 4; ++column) {
        result.projection[column][2] = result.projection[column][3] - plane[column] / steepest;
    }
    result.viewProjection = result.projection * result.view;
    return result;
}

geometry::Ray rayThrough(const CameraView& camera, const glm::vec2& point) {
    const glm::vec3 inEye(point.x / camera.projection[0][0], point.y / camera.projection[1][1], -1);
    return {camera.position, glm::normalize(camera.axes * inEye)};
}

Frustum::Frustum(const glm::mat4& viewProjection) {
    // Gribb and Hartmann 2001, "Fast Extraction of Viewing Frustum Planes from the
    // World-View-Projection Matrix"
    const glm::mat4 rows = glm::transpose(viewProjection);
    planes = {
        rows[3] + rows[0],
        rows[3] - rows[0],
        rows[3] + rows[1],
        rows[3] - rows[1],
        rows[2],
        rows[3] - rows[2]};
}

bool Frustum::mayContain(const geometry::Box& box, const glm::mat4& toWorld) const {
    const glm::vec3 center = glm::vec3(toWorld * glm::vec4((box.min + box.max) * 0.5f, 1));
    const glm::mat3 half(
        glm::vec3(toWorld[0]) * ((box.max.x - box.min.x) * 0.5f),
        glm::vec3(toWorld[1]) * ((box.max.y - box.min.y) * 0.5f),
        glm::vec3(toWorld[2]) * ((box.max.z - box.min.z) * 0.5f));
    return std::ranges::all_of(planes, [&](const glm::vec4& plane) {
        const glm::vec3 normal(plane);
        const float reach = std::abs(glm::dot(normal, half[0])) +
                            std::abs(glm::dot(normal, half[1])) +
                            std::abs(glm::dot(normal, half[2]));
        return glm::dot(normal, center) + plane.w >= -reach;
    });
}

} // namespace zelvo::render
