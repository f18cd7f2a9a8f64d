// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/MedialMap.h"

#include <boost/polygon/voronoi.hpp>

#include <cstdint>
#include <vector>

namespace zelvo::geometry {

using Diagram = boost::polygon::voronoi_diagram<double>;

/// Builds a MedialMap from a finished Voronoi diagram, step by step. Indices of edges and vertices
/// are offsets in the diagram's arrays. An edge and its twin differ only in the last bit of the
/// index.
class MedialMapBuilder {
public:
    MedialMapBuilder(const Outline& outline, const Diagram& diagram);

    [[nodiscard]] MedialMapResult build();

private:
    using Edge = Diagram::edge_type;
    using Vertex = Diagram::vertex_type;

    /// A cell and the range of its edges in cellEdges, counter-clockwise (against the outline's
    /// direction).
    struct RawCell {
        MedialMap::Cell cell;
        std::uint32_t firstEdge = 0;
        std::uint32_t edgeCount = 0;
    };

    /// The points of an edge, from the start of its even half to the end.
    struct Polyline {
        std::uint32_t firstPoint = 0;
        std::uint32_t pointCount = 0;
        std::uint32_t firstLink = 0;
    };

    [[nodiscard]] std::size_t indexOf(const Edge* edge) const;
    [[nodiscard]] std::size_t indexOf(const Vertex* vertex) const;
    [[nodiscard]] std::uint32_t cornerOf(const Diagram::cell_type& cell) const;
    [[nodiscard]] double distanceToSite(glm::dvec2 point, const Diagram::cell_type& cell) const;

    bool findCornerVertices();
    bool findCorner(const Diagram::cell_type& cell);
    bool findCells();
    bool addCell(MedialMap::Site site, std::uint32_t from, std::uint32_t to, const Edge* start);
    void mergeNearVertices();
    [[nodiscard]] std::size_t rootOf(std::size_t vertex);
    [[nodiscard]] std::uint32_t pointOf(const Vertex* vertex);
    [[nodiscard]] const Polyline& polylineOf(const Edge* edge);
    void appendInnerPoints(const Edge* edge);
    void appendParabola(const Edge* edge, std::uint32_t corner, std::uint32_t piece);
    void appendBetweenCorners(const Edge* edge, std::uint32_t corner);
    std::uint32_t addPoint(glm::dvec2 position, double distance);
    void writeCell(const RawCell& raw);

    const Outline& outline;
    const Diagram& diagram;
    std::vector<const Vertex*> vertexOfCorner;
    std::vector<std::size_t> parent;          // of the diagram's vertices: joins merged ones
    std::vector<std::uint32_t> pointOfVertex; // by root
    std::vector<RawCell> rawCells;
    std::vector<const Edge*> cellEdges;
    std::vector<Polyline> polylines; // by edge index / 2
    std::vector<std::uint32_t> polylinePoints;
    MedialMap map;
};

} // namespace zelvo::geometry
