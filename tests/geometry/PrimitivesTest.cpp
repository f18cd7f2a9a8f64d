// SPDX-License-Identifier: MIT
#include "platform/geometry/Primitives.h"

#include "geometry/SolidChecks.h"

#include <gtest/gtest.h>

#include <numbers>

namespace zelvo::geometry {

namespace {

constexpr double kPi = std::numbers::pi;

struct SolidCase {
    const char* name;
    Mesh mesh;
    double volume; // of the ideal solid; the facets are inside it
    long euler;
};

TEST(Primitives, AreClosedSolidsOfTheirBodysVolume) {
    // A box with rounded edges: core, six slabs, quarter cylinders, one ball.
    const double roundBox =
        6 * 4 * 2 + 2 * (6 * 4 + 4 * 2 + 6 * 2) + kPi * (6 + 4 + 2) + 4 * kPi / 3;
    // clang-format off
    const SolidCase cases[] = {
        {"box",         makeBox(8,    6,   4,                      0), 192,         2},
        {"rounded box", makeBox(8,    6,   4,                      1), roundBox,    2},
        {"pill",        makeBox(2,    2,   2,                      9), 4 * kPi / 3, 2},
        {"sphere",      makeSphere(5, 64), 4 * kPi / 3 * 125,      2 },
        {"six-sided sphere", makeSixSidedSphere(5, 64), 4 * kPi / 3 * 125,      2 },
        {"torus",            makeTorus(10,                      2, 64, 32),  2 * kPi * kPi * 10 * 4,            0      },
    };
    // clang-format on
    for (const SolidCase& row : cases) {
        EXPECT_EQ(faultOf(row.mesh), "") << row.name;
        const SolidReport report = inspect(row.mesh);
        EXPECT_NEAR(report.volume, row.volume, 0.015 * row.volume) << row.name;
        EXPECT_EQ(report.euler, row.euler) << row.name;
        EXPECT_EQ(report.twisted, 0U) << row.name;
    }
}

TEST(Primitives, PlaneFacesTheViewerWithItsPictureUpright) {
    const Mesh plane = makePlane(4, 2);
    const Box box = plane.bounds();
    EXPECT_EQ(box.max.x - box.min.x, 4);
    EXPECT_EQ(box.max.y - box.min.y, 2);
    EXPECT_EQ(inspect(plane).folded, 0U);
    for (const Vertex& vertex : plane.vertices) {
        EXPECT_EQ(vertex.uv.x, vertex.position.x > 0 ? 1 : 0);
        EXPECT_EQ(vertex.uv.y, vertex.position.y > 0 ? 0 : 1);
    }
}

} // namespace

} // namespace zelvo::geometry
