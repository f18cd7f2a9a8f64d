// SPDX-License-Identifier: MIT
#include "platform/geometry/MedialMapBuilder.h"

#include "platform/geometry/Cross.h"

#include <glm/geometric.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>

namespace zelvo::geometry {

namespace {

constexpr double kMergeDistance = 3e-4; // scene units; nearer vertices are merged
// Scene units; for curved edges, and for the distance along straight ones.
constexpr double kChordError = 0.05;
// The largest angle of one link, seen from a reflex corner (radians).
constexpr double kMaxFanAngle = std::numbers::pi / 10;
constexpr int kMaxPieces = 24;
constexpr std::uint32_t kNone = UINT32_MAX;

double angleBetween(glm::dvec2 a, glm::dvec2 b) {
    return std::abs(std::atan2(cross(a, b), glm::dot(a, b)));
}

glm::dvec2 positionOf(const Diagram::vertex_type* vertex) {
    return glm::dvec2(vertex->x(), vertex->y()) / kGridSteps;
}

int clampPieces(double count) {
    return std::clamp(static_cast<int>(std::ceil(count)), 1, kMaxPieces);
}

} // namespace

MedialMapBuilder::MedialMapBuilder(const Outline& outline_, const Diagram& diagram_)
    : outline(outline_)
    , diagram(diagram_)
    , vertexOfCorner(outline_.corners.size(), nullptr)
    , parent(diagram_.vertices().size())
    , pointOfVertex(diagram_.vertices().size(), kNone)
    , polylines(diagram_.edges().size() / 2) {
    std::iota(parent.begin(), parent.end(), std::size_t{0});
}

MedialMapResult MedialMapBuilder::build() {
    for (const OutlineCorner& corner : outline.corners) {
        addPoint(corner.position, 0);
    }
    if (!findCornerVertices() || !findCells())
        return {};
    mergeNearVertices();
    for (const RawCell& raw : rawCells) {
        writeCell(raw);
    }
    return {.map = std::move(map), .isValid = true};
}

std::size_t MedialMapBuilder::indexOf(const Edge* edge) const {
    return static_cast<std::size_t>(edge - diagram.edges().data());
}

std::size_t MedialMapBuilder::indexOf(const Vertex* vertex) const {
    return static_cast<std::size_t>(vertex - diagram.vertices().data());
}

// The corner of a corner's cell, or the start of a piece.
std::uint32_t MedialMapBuilder::cornerOf(const Diagram::cell_type& cell) const {
    const auto piece = static_cast<std::uint32_t>(cell.source_index());
    const bool isEnd = cell.source_category() == boost::polygon::SOURCE_CATEGORY_SEGMENT_END_POINT;
    return isEnd ? outline.corners[piece].next : piece;
}

double MedialMapBuilder::distanceToSite(glm::dvec2 point, const Diagram::cell_type& cell) const {
    const OutlineCorner& corner = outline.corners[cornerOf(cell)];
    const glm::dvec2 arm = point - corner.position;
    return cell.contains_point() ? glm::length(arm) : std::abs(cross(corner.direction, arm));
}

// The diagram has a vertex at every corner of the outline.
bool MedialMapBuilder::findCornerVertices() {
    const bool areFound =
        std::all_of(diagram.cells().begin(), diagram.cells().end(), [this](const auto& cell) {
            return !cell.contains_point() || findCorner(cell);
        });
    return areFound &&
           std::none_of(vertexOfCorner.begin(), vertexOfCorner.end(), [](const Vertex* vertex) {
               return vertex == nullptr;
           });
}

bool MedialMapBuilder::findCorner(const Diagram::cell_type& cell) {
    if (cell.is_degenerate())
        return false;
    const std::uint32_t corner = cornerOf(cell);
    const glm::dvec2 position = outline.corners[corner].position;
    double least = 1 / kGridSteps;
    const Edge* edge = cell.incident_edge();
    do {
        const Vertex* vertex = edge->vertex0();
        edge = edge->next();
        if (vertex == nullptr)
            continue;
        const double distance = glm::distance(position, positionOf(vertex));
        if (distance < least) {
            least = distance;
            vertexOfCorner[corner] = vertex;
        }
    } while (edge != cell.incident_edge());
    return vertexOfCorner[corner] != nullptr;
}

bool MedialMapBuilder::findCells() {
    return std::all_of(
        diagram.cells().begin(), diagram.cells().end(), [this](const Diagram::cell_type& cell) {
            const std::uint32_t corner = cornerOf(cell);
            const OutlineCorner& start = outline.corners[corner];
            const Edge* edge = cell.incident_edge();
            if (!cell.contains_point())
                return addCell(MedialMap::Site::piece, corner, start.next, edge);
            return start.turn >= 0 || addCell(MedialMap::Site::corner, corner, corner, edge);
        });
}

// Walks around the cell from the site's end to its start. The inside is on the left, so this stays
// inside.
bool MedialMapBuilder::addCell(
    MedialMap::Site site, std::uint32_t from, std::uint32_t to, const Edge* start) {
    const Edge* edge = start;
    while (edge->vertex0() != vertexOfCorner[to]) {
        edge = edge->next();
        if (edge == start)
            return false;
    }
    RawCell raw;
    raw.cell.site = site;
    raw.cell.corner = from;
    raw.firstEdge = static_cast<std::uint32_t>(cellEdges.size());
    const Edge* const first = edge;
    do {
        if (edge->vertex1() == nullptr)
            return false;
        cellEdges.push_back(edge);
        if (edge->vertex1() == vertexOfCorner[from]) {
            raw.edgeCount = static_cast<std::uint32_t>(cellEdges.size()) - raw.firstEdge;
            rawCells.push_back(raw);
            return true;
        }
        edge = edge->next();
    } while (edge != first);
    return false;
}

std::size_t MedialMapBuilder::rootOf(std::size_t vertex) {
    while (parent[vertex] != vertex) {
        parent[vertex] = parent[parent[vertex]];
        vertex = parent[vertex];
    }
    return vertex;
}

// Merges the ends of edges that are too short for single precision, except edges that end in the
// outline, because each piece keeps its own cell.
void MedialMapBuilder::mergeNearVertices() {
    for (std::uint32_t corner = 0; corner < vertexOfCorner.size(); ++corner) {
        pointOfVertex[indexOf(vertexOfCorner[corner])] = corner;
    }
    for (const Edge* edge : cellEdges) {
        const Vertex* a = edge->vertex0();
        const Vertex* b = edge->vertex1();
        if (glm::distance(positionOf(a), positionOf(b)) >= kMergeDistance)
            continue;
        if (pointOfVertex[indexOf(a)] != kNone || pointOfVertex[indexOf(b)] != kNone)
            continue;
        parent[rootOf(indexOf(b))] = rootOf(indexOf(a));
    }
}

std::uint32_t MedialMapBuilder::addPoint(glm::dvec2 position, double distance) {
    map.points.push_back({.position = position, .distance = distance});
    return static_cast<std::uint32_t>(map.points.size() - 1);
}

std::uint32_t MedialMapBuilder::pointOf(const Vertex* vertex) {
    const std::size_t root = rootOf(indexOf(vertex));
    if (pointOfVertex[root] == kNone) {
        const Vertex& kept = diagram.vertices()[root];
        const glm::dvec2 position = positionOf(&kept);
        // After merging, the edge's site can differ from the root's.
        const Edge* own = kept.incident_edge();
        pointOfVertex[root] = addPoint(position, distanceToSite(position, *own->cell()));
    }
    return pointOfVertex[root];
}

// The points with equal distance to a point and to a piece form a parabola. If x runs along the
// piece from the point's foot and p is the point's height over it, then y = (x^2 + p^2) / (2 p),
// and a chord of width w is at most w^2 / (8 p) away.
void MedialMapBuilder::appendParabola(const Edge* edge, std::uint32_t corner, std::uint32_t piece) {
    const OutlineCorner& line = outline.corners[piece];
    const glm::dvec2 focus = outline.corners[corner].position;
    const glm::dvec2 inward = -outwardNormal(line);
    const double p = glm::dot(focus - line.position, inward);
    const glm::dvec2 a = positionOf(edge->vertex0());
    const glm::dvec2 b = positionOf(edge->vertex1());
    const double xa = glm::dot(a - focus, line.direction);
    const double xb = glm::dot(b - focus, line.direction);
    if (p < kMergeDistance)
        return;
    const int count = clampPieces(std::max(
        std::abs(xb - xa) / std::sqrt(8 * p * kChordError),
        angleBetween(a - focus, b - focus) / kMaxFanAngle));
    for (int i = 1; i < count; ++i) {
        const double x = xa + (xb - xa) * i / count;
        const double y = (x * x + p * p) / (2 * p);
        polylinePoints.push_back(addPoint(focus + line.direction * x + inward * (y - p), y));
    }
}

// The edge is straight, but the distance along it is a hyperbola sqrt(h^2 + t^2). A chord of width
// w is at most w^2 / (8 h) away.
void MedialMapBuilder::appendBetweenCorners(const Edge* edge, std::uint32_t corner) {
    const glm::dvec2 focus = outline.corners[corner].position;
    const glm::dvec2 a = positionOf(edge->vertex0());
    const glm::dvec2 b = positionOf(edge->vertex1());
    const double h = std::abs(cross(glm::normalize(b - a), focus - a));
    if (h < kMergeDistance)
        return;
    const int count = clampPieces(std::max(
        glm::distance(a, b) / std::sqrt(8 * h * kChordError),
        angleBetween(a - focus, b - focus) / kMaxFanAngle));
    for (int i = 1; i < count; ++i) {
        const glm::dvec2 position = a + (b - a) * (static_cast<double>(i) / count);
        polylinePoints.push_back(addPoint(position, glm::distance(position, focus)));
    }
}

void MedialMapBuilder::appendInnerPoints(const Edge* edge) {
    if (edge->is_secondary())
        return;
    const Diagram::cell_type& left = *edge->cell();
    const Diagram::cell_type& right = *edge->twin()->cell();
    if (left.contains_point() && right.contains_point()) {
        appendBetweenCorners(edge, cornerOf(left));
    } else if (left.contains_point()) {
        appendParabola(edge, cornerOf(left), cornerOf(right));
    } else if (right.contains_point()) {
        appendParabola(edge, cornerOf(right), cornerOf(left));
    }
}

const MedialMapBuilder::Polyline& MedialMapBuilder::polylineOf(const Edge* edge) {
    Polyline& line = polylines[indexOf(edge) / 2];
    if (line.pointCount > 0)
        return line;
    const Edge* even = &diagram.edges()[indexOf(edge) & ~std::size_t{1}];
    line.firstPoint = static_cast<std::uint32_t>(polylinePoints.size());
    line.firstLink = static_cast<std::uint32_t>(map.links.size());
    const std::uint32_t start = pointOf(even->vertex0());
    const std::uint32_t end = pointOf(even->vertex1());
    polylinePoints.push_back(start);
    if (start != end) {
        appendInnerPoints(even);
        polylinePoints.push_back(end);
    }
    line.pointCount = static_cast<std::uint32_t>(polylinePoints.size()) - line.firstPoint;
    for (std::uint32_t i = 0; i + 1 < line.pointCount; ++i) {
        map.links.push_back(
            {polylinePoints[line.firstPoint + i], polylinePoints[line.firstPoint + i + 1]});
    }
    return line;
}

void MedialMapBuilder::writeCell(const RawCell& raw) {
    MedialMap::Cell cell = raw.cell;
    cell.firstStep = static_cast<std::uint32_t>(map.steps.size());
    std::uint32_t last = 0;
    for (std::uint32_t e = raw.edgeCount; e-- > 0;) {
        const Edge* edge = cellEdges[raw.firstEdge + e];
        const Polyline& line = polylineOf(edge);
        // The cell's edges run against the outline's direction, so the even half of an odd edge
        // runs along it.
        const bool isAlong = indexOf(edge) % 2 == 1;
        for (std::uint32_t i = 0; i + 1 < line.pointCount; ++i) {
            const std::uint32_t link = isAlong ? i : line.pointCount - 2 - i;
            const std::uint32_t point = isAlong ? i : line.pointCount - 1 - i;
            map.steps.push_back({polylinePoints[line.firstPoint + point], line.firstLink + link});
        }
        last = polylinePoints[line.firstPoint + (isAlong ? line.pointCount - 1 : 0)];
    }
    map.steps.push_back({last, MedialMap::kNoLink});
    cell.stepCount = static_cast<std::uint32_t>(map.steps.size()) - cell.firstStep;
    map.cells.push_back(cell);
}

} // namespace zelvo::geometry
