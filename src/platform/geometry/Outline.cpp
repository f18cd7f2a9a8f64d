// SPDX-License-Identifier: MIT
#include "platform/geometry/Outline.h"

#include "platform/geometry/Cross.h"
#include "platform/geometry/Flatten.h"
#include "platform/geometry/OutlineRepair.h"
#include "platform/geometry/Tangle.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <polyclipping/clipper.hpp>

#include <cmath>
#include <numbers>
#include <unordered_map>

namespace zelvo::geometry {

namespace {

// Joints that turn more than this are corners (radians).
constexpr double kSmoothTurn = std::numbers::pi / 6;
constexpr double kSpeckArea = 0.02; // square units; smaller loops are dropped
constexpr int kMaxUnions = 3;

double turnFrom(glm::dvec2 in, glm::dvec2 out) {
    return std::atan2(cross(in, out), glm::dot(in, out));
}

GridPoint toGrid(glm::dvec2 position) {
    return {glm::round(position * kGridSteps)};
}

std::uint64_t keyOf(GridPoint point) {
    return std::uint64_t{static_cast<std::uint32_t>(point.x)} << 32 |
           static_cast<std::uint32_t>(point.y);
}

// The direction of the curve through a grid point; zero at a real corner. Taken from the path,
// because the union does not keep it.
using Joints = std::unordered_map<std::uint64_t, glm::dvec2>;

Joints jointsOf(const std::vector<FlatContour>& contours) {
    Joints joints;
    for (const FlatContour& contour : contours) {
        for (const FlatVertex& vertex : contour) {
            const bool isSmooth =
                std::abs(turnFrom(vertex.directionIn, vertex.directionOut)) < kSmoothTurn;
            const glm::dvec2 direction =
                isSmooth ? glm::normalize(vertex.directionIn + vertex.directionOut) : glm::dvec2(0);
            const auto [entry, isNew] =
                joints.try_emplace(keyOf(toGrid(vertex.position)), direction);
            if (!isNew)
                entry->second = glm::dvec2(0);
        }
    }
    return joints;
}

std::vector<GridLoop> unite(const ClipperLib::Paths& paths) {
    ClipperLib::Clipper clipper;
    clipper.StrictlySimple(true);
    clipper.AddPaths(paths, ClipperLib::ptSubject, true);
    ClipperLib::Paths united;
    clipper.Execute(ClipperLib::ctUnion, united, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
    std::vector<GridLoop> loops;
    for (const ClipperLib::Path& path : united) {
        if (std::abs(ClipperLib::Area(path)) < kSpeckArea * kGridSteps * kGridSteps)
            continue;
        GridLoop& loop = loops.emplace_back();
        for (const ClipperLib::IntPoint& point : path) {
            loop.emplace_back(static_cast<int>(point.X), static_cast<int>(point.Y));
        }
    }
    return loops;
}

ClipperLib::Paths toPaths(const std::vector<GridLoop>& loops) {
    ClipperLib::Paths paths;
    for (const GridLoop& loop : loops) {
        ClipperLib::Path& path = paths.emplace_back();
        for (const GridPoint& point : loop) {
            path.emplace_back(point.x, point.y);
        }
    }
    return paths;
}

std::vector<GridLoop> uniteContours(const std::vector<FlatContour>& contours) {
    std::vector<GridLoop> loops;
    for (const FlatContour& contour : contours) {
        GridLoop& loop = loops.emplace_back();
        for (const FlatVertex& vertex : contour) {
            loop.push_back(toGrid(vertex.position));
        }
    }
    // Rounding to the grid can make pieces cross. Then the union is computed again.
    for (int round = 0; round < kMaxUnions; ++round) {
        RepairedLoops repaired = drawApart(unite(toPaths(loops)));
        loops = std::move(repaired.loops);
        if (repaired.isClean)
            break;
    }
    return loops;
}

void appendLoop(Outline& outline, const GridLoop& loop) {
    const auto first = static_cast<std::uint32_t>(outline.corners.size());
    const auto count = static_cast<std::uint32_t>(loop.size());
    double arc = 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        OutlineCorner corner;
        corner.grid = loop[i];
        corner.position = glm::dvec2(loop[i]) / kGridSteps;
        corner.next = first + (i + 1) % count;
        corner.previous = first + (i + count - 1) % count;
        const glm::dvec2 end = glm::dvec2(loop[(i + 1) % count]) / kGridSteps;
        corner.length = glm::distance(corner.position, end);
        corner.direction = (end - corner.position) / corner.length;
        corner.arc = arc;
        arc += corner.length;
        outline.corners.push_back(corner);
    }
    outline.loops.push_back({.first = first, .count = count});
}

// The normal of a joint: that of the curve if known, else half-way between the two pieces.
void findJoint(Outline& outline, OutlineCorner& corner, const Joints& joints) {
    const glm::dvec2 in = outline.corners[corner.previous].direction;
    corner.turn = turnFrom(in, corner.direction);
    const glm::dvec2 sum = in + corner.direction;
    if (glm::length(sum) < 0.5)
        return;
    glm::dvec2 direction = glm::normalize(sum);
    const auto known = joints.find(keyOf(corner.grid));
    if (known == joints.end() || known->second == glm::dvec2(0)) {
        corner.isSmooth = known == joints.end() && std::abs(corner.turn) < kSmoothTurn;
    } else {
        // The union may run against the contour, or switch to another one here.
        const double likeness = glm::dot(known->second, direction);
        corner.isSmooth = std::abs(likeness) > 0.8;
        direction = likeness < 0 ? -known->second : known->second;
    }
    corner.normal = {direction.y, -direction.x};
}

} // namespace

Outline makeOutline(const BezierPath& path, double flatness) {
    const std::vector<FlatContour> contours = flatten(path, flatness);
    Outline outline;
    if (contours.empty() || isTangle(contours))
        return outline;
    for (const GridLoop& loop : uniteContours(contours)) {
        appendLoop(outline, loop);
    }
    const Joints joints = jointsOf(contours);
    for (OutlineCorner& corner : outline.corners) {
        findJoint(outline, corner, joints);
    }
    return outline;
}

} // namespace zelvo::geometry
