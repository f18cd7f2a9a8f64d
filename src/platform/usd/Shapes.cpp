// SPDX-License-Identifier: MIT
#include "platform/usd/Shapes.h"

#include <glm/gtc/constants.hpp>

#include <array>
#include <cmath>
#include <string_view>
#include <vector>

namespace zelvo::usd {

using object::Polygons;

namespace {

constexpr std::uint32_t kSegments = 48; ///< around; a multiple of 4, so that the box is exact
constexpr int kStacks = 12;             ///< of a quarter circle

void addFace(
    Polygons& polygons, const std::vector<std::uint32_t>& points, std::uint32_t smoothing) {
    for (const std::uint32_t point : points)
        polygons.corners.push_back({point, Polygons::kNone, Polygons::kNone});
    const auto count = static_cast<std::uint32_t>(points.size());
    polygons.faces.push_back({count, Polygons::kNone, smoothing});
}

Polygons cube(double size) {
    Polygons box;
    for (std::uint32_t i = 0; i < 8; ++i) {
        const auto side = [i, size](std::uint32_t bit) {
            return (i & bit) != 0 ? size / 2 : -size / 2;
        };
        box.points.emplace_back(side(1), side(2), side(4));
    }
    for (const auto& [a, b, c, d] : std::to_array<std::array<std::uint32_t, 4>>(
             {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}}))
        addFace(box, {a, b, c, d}, Polygons::kFlat);
    return box;
}

/// A point of the outline that turns around the z axis.
struct OutlinePoint {
    double radius = 0;
    double z = 0;
};

/// A circle of the outline's turn.
struct Ring {
    std::uint32_t first;
    bool isPole;

    [[nodiscard]] std::uint32_t at(std::uint32_t segment) const {
        return isPole ? first : first + segment % kSegments;
    }
};

void addBand(Polygons& solid, const Ring& low, const Ring& high) {
    if (low.isPole && high.isPole)
        return;
    for (std::uint32_t s = 0; s < kSegments; ++s) {
        std::vector<std::uint32_t> corners = {low.at(s), low.at(s + 1), high.at(s + 1), high.at(s)};
        if (low.isPole)
            corners.erase(corners.begin() + 1);
        if (high.isPole)
            corners.pop_back();
        addFace(solid, corners, Polygons::kByAngle);
    }
}

/// A solid of revolution. The outline goes from the lower pole to the upper one.
Polygons turned(const std::vector<OutlinePoint>& outline) {
    Polygons solid;
    std::vector<Ring> rings;
    for (const OutlinePoint& point : outline) {
        const bool isPole = point.radius == 0;
        rings.push_back({static_cast<std::uint32_t>(solid.points.size()), isPole});
        for (std::uint32_t i = 0; i < (isPole ? 1 : kSegments); ++i) {
            const double angle = glm::two_pi<double>() * i / kSegments;
            solid.points.emplace_back(
                point.radius * std::cos(angle), point.radius * std::sin(angle), point.z);
        }
    }
    for (std::size_t i = 0; i + 1 < rings.size(); ++i)
        addBand(solid, rings[i], rings[i + 1]);
    return solid;
}

/// Half a circle: a quarter around each centre, with a straight line between them.
std::vector<OutlinePoint> roundOutline(double lowRadius, double highRadius, double halfHeight) {
    std::vector<OutlinePoint> outline;
    for (int i = 0; i <= kStacks; ++i) {
        const double angle = glm::half_pi<double>() * i / kStacks;
        const double radius = i == 0 ? 0 : lowRadius * std::sin(angle);
        outline.push_back({radius, -halfHeight - lowRadius * std::cos(angle)});
    }
    for (int i = halfHeight > 0 ? 0 : 1; i <= kStacks; ++i) {
        const double angle = glm::half_pi<double>() * i / kStacks;
        const double radius = i == kStacks ? 0 : highRadius * std::cos(angle);
        outline.push_back({radius, halfHeight + highRadius * std::sin(angle)});
    }
    return outline;
}

/// Puts the axis of the shape, so far z, along another one.
void turnAxis(Polygons& shape, std::string_view axis) {
    for (glm::dvec3& p : shape.points) {
        if (axis == "X") {
            p = {p.z, p.x, p.y};
        } else if (axis == "Y") {
            p = {p.y, p.z, p.x};
        }
    }
}

/// Faces along the axis. Around X, the width lies along z, around Y along x.
Polygons plane(double width, double length, std::string_view axis) {
    Polygons sheet;
    for (const auto& [x, y] :
         std::to_array<std::array<double, 2>>({{-1, -1}, {1, -1}, {1, 1}, {-1, 1}})) {
        const double w = x * width / 2;
        const double l = y * length / 2;
        if (axis == "X") {
            sheet.points.emplace_back(0, l, -w);
        } else if (axis == "Y") {
            sheet.points.emplace_back(w, 0, -l);
        } else {
            sheet.points.emplace_back(w, l, 0);
        }
    }
    addFace(sheet, {0, 1, 2, 3}, Polygons::kFlat);
    return sheet;
}

} // namespace

std::optional<Polygons> shapeOf(const Prim& prim) {
    const std::string& type = prim.typeName;
    const auto number = [&prim](std::string_view name, double fallback) {
        const auto value = prim.number(name);
        return value && std::isfinite(*value) ? *value : fallback;
    };
    std::string axis = prim.text("axis");
    if (axis.empty())
        axis = 'Z';
    if (type == "Cube")
        return cube(number("size", 2));
    if (type == "Plane")
        return plane(number("width", 2), number("length", 2), axis);
    const bool isCapsule = type == "Capsule" || type == "Capsule_1";
    const double radius = number("radius", isCapsule ? 0.5 : 1);
    const double low = number("radiusBottom", radius);
    const double high = number("radiusTop", radius);
    const double half = number("height", isCapsule ? 1 : 2) / 2;
    Polygons shape;
    if (type == "Sphere") {
        shape = turned(roundOutline(radius, radius, 0));
    } else if (type == "Cylinder" || type == "Cylinder_1") {
        shape = turned({{0, -half}, {low, -half}, {high, half}, {0, half}});
    } else if (type == "Cone") {
        shape = turned({{0, -half}, {radius, -half}, {0, half}});
    } else if (isCapsule) {
        shape = turned(roundOutline(low, high, half));
    } else {
        return std::nullopt;
    }
    turnAxis(shape, axis);
    return shape;
}

} // namespace zelvo::usd
