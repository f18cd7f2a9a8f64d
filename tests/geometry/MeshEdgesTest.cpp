// SPDX-License-Identifier: MIT
#include "platform/geometry/MeshEdges.h"

#include "platform/geometry/Primitives.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace zelvo::geometry {
namespace {

long seenFrom(const std::vector<MeshEdge>& edges, const glm::vec3& place) {
    return std::ranges::count_if(
        edges, [&](const MeshEdge& edge) { return isSeenFrom(edge, place); });
}

TEST(MeshEdges, OfABoxAreThoseOfTheFacesThatAreSeen) {
    const std::vector<MeshEdge> edges = meshEdges(makeBox(8, 6, 4, 0));
    EXPECT_EQ(edges.size(), 12U) << "no diagonals";
    EXPECT_EQ(seenFrom(edges, {0, 0, 50}), 4);
    EXPECT_EQ(seenFrom(edges, {50, 0, 50}), 7);
    EXPECT_EQ(seenFrom(edges, {50, -50, 50}), 9);
    EXPECT_EQ(seenFrom(edges, {1, 1, 1}), 0) << "from inside";
}

TEST(MeshEdges, OfARoundBodyAreSeenOnlyAtItsHorizon) {
    const std::vector<MeshEdge> edges = meshEdges(makeSphere(5, 64));
    const glm::vec3 eye(500, 0, 0);
    EXPECT_GE(seenFrom(edges, eye), 64);
    for (const MeshEdge& edge : edges) {
        EXPECT_FALSE(edge.isCrease);
        if (isSeenFrom(edge, eye)) {
            EXPECT_LT(std::abs(edge.from.x), 0.5F);
        }
    }
}

TEST(MeshEdges, OfASheetAreItsBorderFromBothSidesAndOfACoarserVersionItsOwn) {
    Mesh sheet = makePlane(4, 2);
    const std::vector<MeshEdge> edges = meshEdges(sheet);
    EXPECT_EQ(edges.size(), 4U);
    EXPECT_EQ(seenFrom(edges, {0, 0, 9}), 4);
    EXPECT_EQ(seenFrom(edges, {0, 0, -9}), 4);
    sheet.coarser = {{{sheet.indices[0], sheet.indices[1], sheet.indices[2]}, 0}};
    EXPECT_EQ(meshEdges(sheet, 1).size(), 3U);
}

// Otherwise the face and the bevel of a letter would run together.
TEST(MeshEdges, BetweenTwoElementsAreCreasesEvenIfTheyBendLittle) {
    Mesh roof;
    for (const glm::vec3& place : {glm::vec3(-1, 0, 0), {0, -1, 0.1F}, {0, 1, 0.1F}, {1, 0, 0}}) {
        roof.vertices.emplace_back().position = place;
    }
    roof.indices = {0, 1, 2, 1, 3, 2};
    const auto creases = [&] {
        return std::ranges::count_if(meshEdges(roof), [](const MeshEdge& edge) {
            return edge.isCrease && edge.from.x == edge.to.x;
        });
    };
    roof.elements = {{0, 6}};
    EXPECT_EQ(creases(), 0);
    roof.elements = {{0, 3}, {3, 3}};
    EXPECT_EQ(creases(), 1);
}

} // namespace
} // namespace zelvo::geometry
