// SPDX-License-Identifier: MIT
#include "platform/geometry/Extrusion.h"

#include "geometry/SolidChecks.h"

#include <glm/geometric.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <numbers>
#include <vector>

namespace zelvo::geometry {

namespace {

constexpr double kPi = std::numbers::pi;
using Corners = std::vector<glm::vec2>;

BezierPath pathOf(std::initializer_list<Corners> contours) {
    BezierPath path;
    for (const Corners& corners : contours) {
        path.moveTo(corners.front());
        for (std::size_t i = 1; i < corners.size(); ++i) {
            path.lineTo(corners[i]);
        }
        path.close();
    }
    return path;
}

Corners squareAt(float x, float y, float side) {
    return {{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}};
}

BezierPath circle(float radius) {
    const float k = 0.5522847F * radius;
    BezierPath path;
    path.moveTo({radius, 0});
    path.cubicTo({radius, k}, {k, radius}, {0, radius});
    path.cubicTo({-k, radius}, {-radius, k}, {-radius, 0});
    path.cubicTo({-radius, -k}, {-k, -radius}, {0, -radius});
    path.cubicTo({k, -radius}, {radius, -k}, {radius, 0});
    path.close();
    return path;
}

BezierPath roundedProfile() {
    BezierPath path;
    path.moveTo({0, 1});
    path.quadTo({1, 1}, {1, 0});
    return path;
}

ExtrusionOptions options(float depth, float radius, const BezierPath& profile = {}) {
    return {.depth = depth, .chamferRadius = radius, .chamferProfile = profile};
}

// Moved in by t, an outline has the area: area - perimeter t + k t^2. Each right-angled outer
// corner adds 1 to k; each reflex corner subtracts its sector, because the offset around it is an
// arc.
struct KnownShape {
    const char* name;
    BezierPath path;
    double area, perimeter, k;
};

std::vector<KnownShape> knownShapes() {
    Corners hole = squareAt(30, 30, 40);
    const float height = 50 * std::sqrt(3.0F);
    // clang-format off
    return {
        {"square",           pathOf({squareAt(0, 0, 100)}),                               10000, 400, 4                 },
        {"clockwise square", pathOf({{{0, 0}, {0, 100}, {100, 100}, {100, 0}}}),          10000, 400, 4                 },
        {"ring",             pathOf({squareAt(0, 0, 100), {hole.rbegin(), hole.rend()}}), 8400,  560, 4 - kPi           },
        {"L", pathOf({{{0, 0}, {100, 0}, {100, 40}, {40, 40}, {40, 100}, {0, 100}}}),     6400,  400, 5 - kPi / 4       },
        {"triangle",         pathOf({{{0, 0}, {100, 0}, {50, height}}}), 2500 * std::sqrt(3.0),  300, 3 * std::sqrt(3.0)},
    };
    // clang-format on
}

TEST(Extrusion, HasTheVolumeWorkedOutByHand) {
    constexpr double kDepth = 24;
    constexpr double r = 3;
    for (const KnownShape& shape : knownShapes()) {
        const double whole = shape.area * kDepth;
        // Twice the integral over the height of a chamfer of what the profile removes.
        const double cutLinear = shape.perimeter * r * r - shape.k * r * r * r * 2 / 3;
        const double cutRounded = shape.perimeter * r * r / 3 - shape.k * r * r * r * 2 / 15;
        // The chords of the rounded profile remove a little more than the curve.
        const auto check = [&](const ExtrusionOptions& how, double cut, double tolerance) {
            const Mesh solid = extrude(shape.path, how);
            EXPECT_EQ(faultOf(solid), "") << shape.name;
            EXPECT_NEAR(whole - inspect(solid).volume, cut, tolerance * cut + 1) << shape.name;
            EXPECT_FLOAT_EQ(solid.bounds().max.z, kDepth / 2) << shape.name;
            EXPECT_FLOAT_EQ(solid.bounds().min.z, -kDepth / 2) << shape.name;
        };
        check(options(kDepth, 0), 0, 0);
        check(options(kDepth, r), cutLinear, 0.005);
        check(options(kDepth, r, roundedProfile()), cutRounded, 0.13);
    }
}

TEST(Extrusion, ThinStrokesEndInARidge) {
    const Mesh bar = extrude(pathOf({{{0, 0}, {100, 0}, {100, 4}, {0, 4}}}), options(24, 4));
    EXPECT_EQ(faultOf(bar), "");
    // The wall is 16 high. On both sides is a hip roof whose faces meet 2 from the outline.
    EXPECT_NEAR(inspect(bar).volume, 400 * 16 + 2 * (800 - 416 + 32.0 / 3), 1);
    EXPECT_NEAR(bar.bounds().max.z, 8 + 2, 1e-3);
    EXPECT_EQ(bar.elements[0].indexCount, 0U);
}

TEST(Extrusion, ChamferTakesAtMostHalfTheDepth) {
    const Mesh tile = extrude(pathOf({squareAt(0, 0, 100)}), options(2, 10));
    EXPECT_EQ(faultOf(tile), "");
    EXPECT_EQ(tile.elements.size(), 5U);
    for (std::size_t i = 0; i < tile.elements.size(); ++i)
        EXPECT_EQ(tile.elements[i].isRim, i >= 3) << "only chamfers are rims: " << i;
    EXPECT_EQ(tile.elements[2].indexCount, 0U) << "nothing is left of the walls";
    // Two frustums of height 1, between 100 x 100 and 80 x 80.
    EXPECT_NEAR(inspect(tile).volume, 2 * (10000 + 8000 + 6400) / 3.0, 5);
}

// Where nothing can stand before an element, its shadows are not looked up.
TEST(Extrusion, KnowsWhatIsOpenToTheFront) {
    struct Row {
        const char* name;
        std::vector<glm::vec2> profile; ///< from the face to the wall
        bool isFaceOpen, isChamferOpen;
    };

    for (const Row& row :
         {Row{"straight", {{0, 1}, {1, 0}}, true, true},
          {"a step", {{0, 1}, {0.4f, 0.9f}, {0.5f, 0.2f}, {1, 0}}, true, false},
          {"a ridge above the face", {{0, 1}, {0.3f, 1.5f}, {1, 0}}, false, false}}) {
        BezierPath profile;
        profile.moveTo(row.profile.front());
        for (std::size_t i = 1; i < row.profile.size(); ++i)
            profile.lineTo(row.profile[i]);
        const Mesh tile = extrude(pathOf({squareAt(0, 0, 100)}), options(24, 4, profile));
        EXPECT_EQ(tile.elements[0].facing.z, row.isFaceOpen ? 1 : 0) << row.name;
        EXPECT_EQ(tile.elements[1].facing.z, row.isFaceOpen ? -1 : 0) << row.name;
        EXPECT_EQ(tile.elements[2].facing, glm::vec3(0)) << row.name;
        EXPECT_EQ(tile.elements[3].facing.z, row.isChamferOpen ? 1 : 0) << row.name;
        EXPECT_FLOAT_EQ(tile.elements[3].depth, 4) << row.name;
    }
}

TEST(Extrusion, CurvesAreSmoothAndCornersSharp) {
    const Mesh disc = extrude(circle(30), options(10, 2, roundedProfile()));
    EXPECT_EQ(faultOf(disc), "");
    for (const Vertex& vertex : disc.vertices) {
        const glm::vec2 outward(vertex.normal);
        if (glm::length(outward) < 0.2F)
            continue;
        const float likeness =
            glm::dot(glm::normalize(outward), glm::normalize(glm::vec2(vertex.position)));
        EXPECT_GT(likeness, std::cos(kPi / 180)) << "more than a degree off the radius";
    }
    const Mesh cube = extrude(pathOf({squareAt(0, 0, 100)}), options(10, 2, roundedProfile()));
    for (const Vertex& vertex : cube.vertices) {
        EXPECT_LT(std::abs(vertex.normal.x * vertex.normal.y), 1e-5F) << "a corner went round";
    }
}

// The tangent must point along growing u and the bitangent (by its handedness) along growing v,
// with one scale everywhere.
// The openness of all wall vertices at a place of the outline.
std::vector<float> opennessAt(const Mesh& solid, glm::vec2 place) {
    std::vector<float> found;
    for (const Vertex& vertex : solid.vertices) {
        const bool isWall = vertex.normal.z == 0;
        if (isWall && glm::distance(glm::vec2(vertex.position), place) < 0.01F)
            found.push_back(vertex.openness);
    }
    return found;
}

TEST(Extrusion, LittleLightReachesTheEndOfNarrowWalls) {
    const auto opened = [](const BezierPath& path, float depth) {
        ExtrusionOptions how = options(depth, 0);
        how.hasOpenness = true;
        return extrude(path, how);
    };
    const Mesh tile = opened(pathOf({squareAt(0, 0, 100)}), 40);
    for (const Vertex& vertex : tile.vertices)
        EXPECT_EQ(vertex.openness, 1) << "nothing stands around it";

    // A long slot, 10 wide. At the bottom of two walls without end, the sine of the angle under
    // which the other wall is seen is what it hides.
    const BezierPath slot = pathOf(
        {squareAt(-400, -400, 800),
         {{-300, -5}, {-300, 5}, {0, 5.02F}, {300, 5}, {300, -5}, {0, -5.02F}}});
    for (const float depth : {2.0F, 10.0F, 20.0F}) {
        const std::vector<float> middle = opennessAt(opened(slot, depth), {0, 5.02F});
        ASSERT_FALSE(middle.empty());
        for (const float openness : middle)
            EXPECT_NEAR(openness, 1 - depth / std::hypot(depth, 10.04F), 0.02) << depth;
    }
    // The walls that meet in a corner stand on each other. At its ends a slot is darker still.
    const Mesh deep = opened(slot, 10);
    for (const float openness : opennessAt(deep, {300, 5}))
        EXPECT_LT(openness, opennessAt(deep, {0, 5.02F}).front());
    for (const float openness : opennessAt(deep, {-400, 400}))
        EXPECT_EQ(openness, 1) << "outside";
}

TEST(Extrusion, TexturesLieAtOneScaleAlongTheirTangents) {
    for (const KnownShape& shape : knownShapes()) {
        const Mesh mesh = extrude(shape.path, options(24, 3, roundedProfile()));
        const glm::vec3 size = mesh.bounds().max - mesh.bounds().min;
        const float scale = 1 / std::max(size.x, size.y);
        EXPECT_EQ(inspect(mesh).twisted, 0U) << shape.name;
        // Chamfers slant inwards, so textures are sheared there. The flat elements come first.
        const std::size_t flat = mesh.elements[3].firstIndex;
        for (std::size_t i = 0; i < flat; i += 3) {
            const Vertex& a = mesh.vertices[mesh.indices[i]];
            for (const std::size_t other : {1U, 2U}) {
                const Vertex& b = mesh.vertices[mesh.indices[i + other]];
                const glm::vec3 tangent(a.tangent);
                const glm::vec3 bitangent = glm::cross(a.normal, tangent) * a.tangent.w;
                const glm::vec3 step = b.position - a.position;
                EXPECT_NEAR(b.uv.x - a.uv.x, glm::dot(step, tangent) * scale, 1e-3) << shape.name;
                EXPECT_NEAR(b.uv.y - a.uv.y, glm::dot(step, bitangent) * scale, 1e-3) << shape.name;
            }
        }
    }
}

struct OddCase {
    const char* name;
    BezierPath path;
    double area;
};

TEST(Extrusion, OddOutlinesGiveSoundSolidsOrNone) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    const Corners square = squareAt(0, 0, 10);
    BezierPath open;
    open.moveTo({0, 0});
    open.lineTo({10, 0});
    open.lineTo({10, 10});
    // clang-format off
    const OddCase cases[] = {
        {"empty",                            {},                                                               0  },
        {"a point",                          pathOf({{{1, 1}, {1, 1}, {1, 1}}}),                               0  },
        {"a line there and back",            pathOf({{{0, 0}, {10, 0}, {0, 0}}}),                              0  },
        {"not a number",                     pathOf({{{0, 0}, {10, 0}, {kNan, 10}}}),                          0  },
        {"too far away",                     pathOf({{{0, 0}, {1e30F, 0}, {0, 10}}}),                          0  },
        {"a sound contour beside a bad one", pathOf({square, {{0, 0}, {kNan, 1}, {1, 0}}}),                    100},
        {"points twice",                     pathOf({{{0, 0}, {0, 0}, {10, 0}, {10, 10}, {10, 10}, {0, 10}}}), 100},
        {"a spike",                          pathOf({{{0, 0}, {10, 0}, {20, 0}, {10, 0}, {10, 10}, {0, 10}}}), 100},
        {"figure of eight",                  pathOf({{{0, 0}, {10, 10}, {10, 0}, {0, 10}}}),                   50 },
        {"the same contour twice",           pathOf({square, square}),                                         100},
        {"overlapping",                      pathOf({square, squareAt(5, 5, 10)}),                             175},
        {"touching corners",                 pathOf({square, squareAt(10, 10, 10)}),                           200},
        {"a shared side",                    pathOf({square, squareAt(10, 0, 10)}),                            200},
        {"a hole that touches",              pathOf({squareAt(0, 0, 20), {{10, 0}, {5, 10}, {15, 10}}}),       350},
        {"an unclosed contour",              open,                                                             50 },
    };
    // clang-format on
    for (const OddCase& row : cases) {
        const auto skeleton = makeSkeleton(row.path, 0.1F);
        EXPECT_NEAR(inspect(extrude(*skeleton, options(1, 0))).volume, row.area, 0.2) << row.name;
        for (const float radius : {0.0F, 0.005F, 0.7F, 4.0F}) {
            const Mesh solid = extrude(*skeleton, options(8, radius));
            EXPECT_EQ(faultOf(solid), "") << row.name << " at " << radius;
            EXPECT_EQ(solid.elements.size(), radius > 0 ? 5U : 3U) << row.name;
            EXPECT_EQ(solid.indices.empty(), row.area == 0) << row.name;
        }
    }
}

// Random lines that cross each other at all angles.
class Scribbler {
public:
    float draw() {
        state = state * 1664525U + 1013904223U;
        return static_cast<float>(state >> 8) / static_cast<float>(1U << 24) * 60;
    }

    Corners scribble(int count) {
        Corners corners(static_cast<std::size_t>(count));
        for (glm::vec2& corner : corners)
            corner = {draw(), draw()};
        return corners;
    }

private:
    std::uint32_t state = 1;
};

TEST(Extrusion, ScribblesStayClosed) {
    Scribbler pen;
    for (int round = 0; round < 60; ++round) {
        const Corners corners = pen.scribble(5 + round % 20);
        const Mesh solid = extrude(pathOf({corners}), options(10, 0.5F + 0.05F * pen.draw()));
        EXPECT_EQ(inspect(solid).openSides, 0U) << "scribble " << round;
        EXPECT_GT(inspect(solid).volume, 0) << "scribble " << round;
    }
}

TEST(Extrusion, WhatIsMadeToTakeHoursGivesNothing) {
    Corners hatching; // no line crosses another
    for (int i = 0; i < 60'000; ++i)
        hatching.emplace_back(i % 2 == 0 ? 0.0F : 90.0F, 0.01F * static_cast<float>(i));
    EXPECT_TRUE(extrude(pathOf({Scribbler().scribble(12'000)}), options(10, 1)).indices.empty());
    EXPECT_TRUE(extrude(pathOf({hatching}), options(10, 1)).indices.empty());
}

} // namespace

} // namespace zelvo::geometry
