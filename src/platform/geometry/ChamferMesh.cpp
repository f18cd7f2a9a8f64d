// SPDX-License-Identifier: MIT
#include "platform/geometry/ChamferMesh.h"

#include "platform/geometry/Cross.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zelvo::geometry {

namespace {

constexpr std::uint32_t kNone = UINT32_MAX;
constexpr double kSnap = 1e-3;     // scene units; nearer points are put on the level
constexpr double kArcError = 0.05; // scene units; largest distance between an arc and its chords
constexpr double kMaxWedge = std::numbers::pi / 8;
constexpr double kClearOfFace = 1.1;    // widths; the chords of two wedges stay below this
constexpr float kSameNormal = 0.99999f; // cosine
constexpr float kSameTexture = 1e-4f;

double leanOf(const OutlineCorner& corner) {
    return corner.turn > 0 ? std::tan(corner.turn / 2) : 0;
}

bool areAlike(const Vertex& a, const Vertex& b) {
    const glm::vec2 difference = glm::abs(a.uv - b.uv);
    return glm::dot(a.normal, b.normal) > kSameNormal &&
           std::max(difference.x, difference.y) < kSameTexture;
}

} // namespace

ChamferMesher::ChamferMesher(
    const Outline& outline_,
    const MedialMap& map_,
    const ChamferProfile& profile_,
    double textureScale_)
    : outline(outline_)
    , map(map_)
    , profile(profile_)
    , textureScale(textureScale_)
    , lastLevel(profile_.levelCount() - 1)
    , runStart(profile_.levelCount(), kNone)
    , tops(profile_.levelCount()) {}

ChamferMesh ChamferMesher::build(Faces faces_) {
    faces = faces_;
    rankPoints();
    for (const auto& [a, b] : map.links) {
        cutLink(a, b);
    }
    for (const MedialMap::Cell& cell : map.cells) {
        frame = frameOf(cell);
        const auto steps =
            std::span<const MedialMap::Step>(map.steps).subspan(cell.firstStep, cell.stepCount);
        if (cell.site == MedialMap::Site::piece) {
            chain.clear();
            appendSteps(steps);
            cutChain();
        } else {
            cutFan(steps);
        }
    }
    return std::move(mesh);
}

std::uint32_t ChamferMesher::addPoint(glm::dvec2 position, double distance) {
    mesh.points.push_back(position);
    distances.push_back(distance);
    vertexOf.push_back(kNone);
    return static_cast<std::uint32_t>(mesh.points.size() - 1);
}

// Ranks each point among the levels. Only the outline's own points are on level 0.
void ChamferMesher::rankPoints() {
    double snap = kSnap;
    for (std::size_t level = 0; level < lastLevel; ++level) {
        snap = std::min(snap, (profile.distanceOf(level + 1) - profile.distanceOf(level)) / 8);
    }
    for (std::size_t i = 0; i < map.points.size(); ++i) {
        const MedialMap::Point& point = map.points[i];
        std::uint32_t rank = i < outline.corners.size() ? 0 : 1;
        double distance = rank == 0 ? 0 : point.distance;
        for (std::size_t level = 1; rank > 0 && level <= lastLevel; ++level) {
            const double difference = distance - profile.distanceOf(level);
            if (difference < -snap)
                break;
            rank = static_cast<std::uint32_t>(2 * level + (difference > snap ? 1 : 0));
            if (difference <= snap)
                distance = profile.distanceOf(level);
        }
        addPoint(point.position, distance);
        ranks.push_back(rank);
    }
}

// Adds the points where a link crosses levels. Returns the index of the first.
std::uint32_t ChamferMesher::cutLink(std::uint32_t a, std::uint32_t b) {
    firstCrossing.push_back(static_cast<std::uint32_t>(mesh.points.size()));
    const auto [low, high] = std::minmax(ranks[a], ranks[b]);
    for (std::uint32_t rank = low + 1; rank < high; ++rank) {
        if (rank % 2 != 0)
            continue;
        const double distance = profile.distanceOf(rank / 2);
        const double t = (distance - distances[a]) / (distances[b] - distances[a]);
        addPoint(glm::mix(mesh.points[a], mesh.points[b], t), distance);
    }
    return static_cast<std::uint32_t>(firstCrossing.size() - 1);
}

void ChamferMesher::appendCrossings(std::uint32_t from, std::uint32_t to, std::uint32_t link) {
    const std::uint32_t low = std::min(ranks[from], ranks[to]);
    const std::uint32_t high = std::max(ranks[from], ranks[to]);
    const std::size_t first = chain.size();
    std::uint32_t crossing = firstCrossing[link];
    for (std::uint32_t rank = low + 1; rank < high; ++rank) {
        if (rank % 2 == 0)
            chain.push_back({crossing++, rank});
    }
    if (ranks[from] > ranks[to]) {
        std::reverse(chain.begin() + static_cast<std::ptrdiff_t>(first), chain.end());
    }
}

// The steps, and the crossings between them.
void ChamferMesher::appendSteps(std::span<const MedialMap::Step> steps) {
    for (std::size_t i = 0; i < steps.size(); ++i) {
        chain.push_back({steps[i].point, ranks[steps[i].point]});
        if (i + 1 < steps.size())
            appendCrossings(steps[i].point, steps[i + 1].point, steps[i].link);
    }
}

// A fan is cut into wedges. In each wedge the distance grows evenly from the corner to the link, so
// levels are straight there and never meet. Arcs could cross the chords of curved links where a
// level runs close to a link.
void ChamferMesher::cutFan(std::span<const MedialMap::Step> steps) {
    const std::uint32_t corner = steps.front().point;
    const std::size_t last = steps.size() - 2;
    std::uint32_t left = steps.front().link;
    std::size_t first = 1;
    for (std::size_t i = std::min<std::size_t>(2, last); i <= last; ++i) {
        if (i < last && isWedge(steps.subspan(first, i + 2 - first)))
            continue;
        const std::uint32_t right = i < last ? cutLink(corner, steps[i].point) : steps[last].link;
        chain.assign(1, {corner, 0});
        appendCrossings(corner, steps[first].point, left);
        appendSteps(steps.subspan(first, i + 1 - first));
        appendCrossings(steps[i].point, corner, right);
        chain.push_back({corner, 0});
        cutChain();
        left = right;
        first = i;
    }
}

// Whether a single wedge can cover all steps: if they are well inside the face, levels need not be
// finer than an arc.
bool ChamferMesher::isWedge(std::span<const MedialMap::Step> steps) const {
    if (faces == Faces::fromCells)
        return false;
    const double radius = profile.width();
    const bool isClear = std::all_of(steps.begin(), steps.end(), [&](const auto& step) {
        return distances[step.point] > radius * kClearOfFace;
    });
    const double most = std::min(kMaxWedge, 2 * std::acos(1 - std::min(1.0, kArcError / radius)));
    const double from = fanAngle(mesh.points[steps.front().point]);
    return isClear && fanAngle(mesh.points[steps.back().point]) - from < most;
}

ChamferMesher::Frame ChamferMesher::frameOf(const MedialMap::Cell& cell) const {
    const OutlineCorner& corner = outline.corners[cell.corner];
    const OutlineCorner& end = outline.corners[corner.next];
    Frame result{.site = cell.site, .corner = &corner};
    if (cell.site == MedialMap::Site::corner) {
        result.isRound = !corner.isSmooth;
        return result;
    }
    result.normalAtStart = corner.isSmooth ? corner.normal : outwardNormal(corner);
    result.normalAtEnd = end.isSmooth ? end.normal : outwardNormal(corner);
    result.leanAtStart = leanOf(corner);
    result.leanAtEnd = leanOf(end);
    return result;
}

// Follows the chain from left to right. When the chain rises above a level, a run starts there; it
// ends when the chain comes back down. The piece lies between the run and the next level, or the
// chain if that is lower.
void ChamferMesher::cutChain() {
    for (std::size_t i = 0; i < chain.size(); ++i) {
        const Knot& knot = chain[i];
        const std::size_t level = knot.rank / 2;
        if (knot.rank % 2 != 0) {
            tops[level].push_back(knot.point);
            continue;
        }
        if (i > 0 && chain[i - 1].rank > knot.rank) {
            closeRun(level, knot.point);
        } else if (level > 0) {
            tops[level - 1].push_back(knot.point);
        }
        if (i + 1 < chain.size() && chain[i + 1].rank > knot.rank)
            runStart[level] = knot.point;
    }
}

void ChamferMesher::closeRun(std::size_t level, std::uint32_t end) {
    const std::uint32_t start = runStart[level];
    run.assign(1, start);
    if (start != end)
        run.push_back(end);
    if (level == lastLevel) {
        fillFace();
    } else if (run.size() == 1) {
        fillFan();
    } else {
        fillBand(level);
    }
    tops[level].clear();
    if (level > 0) {
        tops[level - 1].insert(tops[level - 1].end(), run.begin() + 1, run.end());
    }
}

// Clockwise from the perpendicular of the piece before the corner, so it grows in the outline's
// direction.
double ChamferMesher::fanAngle(glm::dvec2 position) const {
    const glm::dvec2 along = outline.corners[frame.corner->previous].direction;
    const glm::dvec2 arm = position - frame.corner->position;
    return std::atan2(glm::dot(along, arm), cross(along, arm));
}

// Coordinates within a cell: x along the outline, y away from it.
glm::dvec2 ChamferMesher::cellPosition(std::uint32_t point) const {
    const glm::dvec2 position = mesh.points[point];
    if (frame.site == MedialMap::Site::corner)
        return {fanAngle(position), distances[point]};
    const glm::dvec2 arm = position - frame.corner->position;
    return {glm::dot(arm, frame.corner->direction), cross(frame.corner->direction, arm)};
}

std::span<const MonotoneCorner> ChamferMesher::place(
    std::span<const std::uint32_t> ids, std::vector<MonotoneCorner>& placed) const {
    placed.clear();
    for (const std::uint32_t id : ids) {
        placed.push_back({.at = cellPosition(id), .id = id});
    }
    return placed;
}

void ChamferMesher::fillBand(std::size_t band) {
    const auto triangles = triangulator.cut(place(run, placedBottom), place(tops[band], placedTop));
    for (const auto& [a, b, c] : triangles) {
        emit(vertexAt(a, band), vertexAt(b, band), vertexAt(c, band));
    }
}

// The lowest band of a corner's cell ends in the corner itself. Its normal there is that of each
// triangle.
void ChamferMesher::fillFan() {
    const std::vector<std::uint32_t>& top = tops.front();
    for (std::size_t i = 0; i + 1 < top.size(); ++i) {
        const std::uint32_t left = vertexAt(top[i], 0);
        const std::uint32_t right = vertexAt(top[i + 1], 0);
        std::uint32_t apex = kNone;
        if (frame.isRound) {
            const Facing a = facingAt(top[i]);
            const Facing b = facingAt(top[i + 1]);
            const Facing middle{glm::normalize(a.normal + b.normal), (a.arc + b.arc) / 2};
            mesh.vertices.push_back(makeVertex(run.front(), 0, middle));
            apex = static_cast<std::uint32_t>(mesh.vertices.size() - 1);
        } else {
            apex = vertexAt(run.front(), 0);
        }
        emit(apex, right, left);
    }
}

void ChamferMesher::fillFace() {
    for (std::size_t i = 0; i + 1 < run.size(); ++i) {
        mesh.faceRim.push_back({run[i], run[i + 1]});
    }
    if (faces == Faces::rimOnly)
        return;
    const std::vector<std::uint32_t>& top = tops[lastLevel];
    if (run.size() == 1) {
        for (std::size_t i = 0; i + 1 < top.size(); ++i) {
            mesh.faceTriangles.push_back({run.front(), top[i + 1], top[i]});
        }
        return;
    }
    const auto triangles = triangulator.cut(place(run, placedBottom), place(top, placedTop));
    mesh.faceTriangles.insert(mesh.faceTriangles.end(), triangles.begin(), triangles.end());
}

// At a smooth joint, the two cells have the same normals along their common side. A cell's sides
// are slanted, so the normal is interpolated over the cell's width at this distance, not over the
// piece.
ChamferMesher::Facing ChamferMesher::facingAt(std::uint32_t point) const {
    const OutlineCorner& corner = *frame.corner;
    const double distance = distances[point];
    const glm::dvec2 arm = mesh.points[point] - corner.position;
    if (frame.isRound) {
        const glm::dvec2 normal = distance > 0 ? -glm::normalize(arm) : outwardNormal(corner);
        const double middle = -corner.turn / 2;
        return {normal, corner.arc + (fanAngle(mesh.points[point]) - middle) * distance};
    }
    if (frame.site == MedialMap::Site::corner)
        return {corner.normal, corner.arc};
    const double left = frame.leanAtStart * distance;
    const double width = corner.length - left - frame.leanAtEnd * distance;
    const double foot = glm::dot(arm, corner.direction);
    const double t = width > kSnap ? glm::clamp((foot - left) / width, 0.0, 1.0) : 0.5;
    const glm::dvec2 normal = glm::mix(frame.normalAtStart, frame.normalAtEnd, t);
    return {glm::normalize(normal), corner.arc + t * corner.length};
}

Vertex
ChamferMesher::makeVertex(std::uint32_t point, std::size_t band, const Facing& facing) const {
    const ChamferProfile::Surface surface = profile.surfaceAt(band, distances[point]);
    Vertex vertex;
    vertex.position = glm::vec3(glm::vec2(mesh.points[point]), static_cast<float>(surface.height));
    vertex.normal =
        glm::vec3(glm::vec2(facing.normal * surface.outward), static_cast<float>(surface.up));
    vertex.tangent = glm::vec4(
        static_cast<float>(-facing.normal.y), static_cast<float>(facing.normal.x), 0.0f, -1.0f);
    vertex.uv = glm::vec2(glm::dvec2(facing.arc, -surface.arc) * textureScale);
    return vertex;
}

// Cells with the same shading at a point share its vertex.
std::uint32_t ChamferMesher::vertexAt(std::uint32_t point, std::size_t band) {
    const Vertex vertex = makeVertex(point, band, facingAt(point));
    const std::uint32_t known = vertexOf[point];
    if (known != kNone && areAlike(mesh.vertices[known], vertex))
        return known;
    mesh.vertices.push_back(vertex);
    vertexOf[point] = static_cast<std::uint32_t>(mesh.vertices.size() - 1);
    return vertexOf[point];
}

void ChamferMesher::emit(std::uint32_t a, std::uint32_t b, std::uint32_t c) {
    mesh.indices.insert(mesh.indices.end(), {a, b, c});
}

} // namespace zelvo::geometry
