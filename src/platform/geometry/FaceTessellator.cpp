// SPDX-License-Identifier: MIT
#include "platform/geometry/FaceTessellator.h"

#include <GL/glu.h>

#include <algorithm>
#include <memory>

namespace zelvo::geometry {

namespace {

using Side = std::array<std::uint32_t, 2>;
using Triangle = std::array<std::uint32_t, 3>;

// Collects the tessellator's output. Vertices are passed as pointers into `ids`.
struct Collector {
    std::vector<std::uint32_t> corners;
    bool hasFailed = false;
};

void GLAPIENTRY collectVertex(void* vertex, void* collector) {
    static_cast<Collector*>(collector)->corners.push_back(*static_cast<std::uint32_t*>(vertex));
}

// Called where sides meet. A corner that is met twice is fine; a new corner is not.
void GLAPIENTRY combine(
    GLdouble* /*position*/, void** vertices, GLfloat* /*weights*/, void** result, void* collector) {
    *result = vertices[0];
    for (int i = 1; i < 4 && vertices[i] != nullptr; ++i) {
        if (*static_cast<std::uint32_t*>(vertices[i]) != *static_cast<std::uint32_t*>(vertices[0]))
            static_cast<Collector*>(collector)->hasFailed = true;
    }
}

void GLAPIENTRY reportError(GLenum /*error*/, void* collector) {
    static_cast<Collector*>(collector)->hasFailed = true;
}

// With this callback, the tessellator gives single triangles.
void GLAPIENTRY ignoreEdgeFlag(GLboolean /*flag*/, void* /*collector*/) {}

std::unique_ptr<GLUtesselator, decltype(&gluDeleteTess)> makeTessellator() {
    std::unique_ptr<GLUtesselator, decltype(&gluDeleteTess)> tess(gluNewTess(), &gluDeleteTess);
    const auto set = [&tess](GLenum which, auto* function) {
        gluTessCallback(
            tess.get(), which, reinterpret_cast<_GLUfuncptr>(function)); // NOLINT: its interface
    };
    set(GLU_TESS_VERTEX_DATA, &collectVertex);
    set(GLU_TESS_COMBINE_DATA, &combine);
    set(GLU_TESS_ERROR_DATA, &reportError);
    set(GLU_TESS_EDGE_FLAG_DATA, &ignoreEdgeFlag);
    gluTessProperty(tess.get(), GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_NONZERO);
    gluTessNormal(tess.get(), 0, 0, 1);
    return tess;
}

// Joins the sides to loops, each given by its corners.
std::vector<std::vector<std::uint32_t>> loopsOf(std::span<const Side> sides) {
    std::vector<Side> byStart(sides.begin(), sides.end());
    std::sort(byStart.begin(), byStart.end());
    std::vector<char> isUsed(byStart.size(), 0);
    const auto nextFrom = [&](std::uint32_t corner) {
        auto side = std::lower_bound(byStart.begin(), byStart.end(), Side{corner, 0});
        while (side != byStart.end() && (*side)[0] == corner &&
               isUsed[static_cast<std::size_t>(side - byStart.begin())] != 0) {
            ++side;
        }
        const bool isFound = side != byStart.end() && (*side)[0] == corner;
        return isFound ? static_cast<std::size_t>(side - byStart.begin()) : byStart.size();
    };
    std::vector<std::vector<std::uint32_t>> loops;
    for (std::size_t first = 0; first < byStart.size(); ++first) {
        if (isUsed[first] != 0)
            continue;
        loops.emplace_back();
        for (std::size_t i = first; i < byStart.size(); i = nextFrom(byStart[i][1])) {
            isUsed[i] = 1;
            loops.back().push_back(byStart[i][0]);
        }
    }
    return loops;
}

// Whether the outer sides of the triangles are exactly the sides of the figure.
bool doSidesMatch(std::span<const Triangle> triangles, std::span<const Side> sides) {
    std::vector<Side> open;
    std::vector<Side> closing;
    for (const auto& [a, b, c] : triangles) {
        for (const Side& side : {Side{a, b}, Side{b, c}, Side{c, a}}) {
            open.push_back(side);
            closing.push_back({side[1], side[0]});
        }
    }
    closing.insert(closing.end(), sides.begin(), sides.end());
    for (const Side& side : sides) {
        open.push_back({side[1], side[0]});
    }
    std::sort(open.begin(), open.end());
    std::sort(closing.begin(), closing.end());
    return open == closing && std::adjacent_find(open.begin(), open.end()) == open.end();
}

} // namespace

std::optional<std::vector<Triangle>>
tessellateFace(std::span<const glm::dvec2> points, std::span<const Side> sides) {
    const auto tess = makeTessellator();
    Collector collector;
    std::vector<std::vector<std::uint32_t>> loops = loopsOf(sides);
    gluTessBeginPolygon(tess.get(), &collector);
    for (std::vector<std::uint32_t>& loop : loops) {
        gluTessBeginContour(tess.get());
        for (std::uint32_t& corner : loop) {
            std::array<GLdouble, 3> location{points[corner].x, points[corner].y, 0};
            gluTessVertex(tess.get(), location.data(), &corner);
        }
        gluTessEndContour(tess.get());
    }
    gluTessEndPolygon(tess.get());
    if (collector.hasFailed)
        return std::nullopt;
    std::vector<Triangle> triangles;
    for (std::size_t i = 0; i + 2 < collector.corners.size(); i += 3) {
        triangles.push_back(
            {collector.corners[i], collector.corners[i + 1], collector.corners[i + 2]});
    }
    if (!doSidesMatch(triangles, sides))
        return std::nullopt;
    return triangles;
}

} // namespace zelvo::geometry
