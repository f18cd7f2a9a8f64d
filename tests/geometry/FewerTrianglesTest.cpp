// SPDX-License-Identifier: MIT
#include "platform/geometry/ClosedSolid.h"
#include "platform/geometry/MeshLevels.h"
#include "platform/geometry/Primitives.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace zelvo::geometry {
namespace {

Mesh turnedOver(Mesh mesh) {
    for (std::size_t i = 0; i < mesh.indices.size(); i += 3)
        std::swap(mesh.indices[i], mesh.indices[i + 1]);
    return mesh;
}

Mesh together(Mesh one, const Mesh& other) {
    const auto first = static_cast<std::uint32_t>(one.vertices.size());
    one.vertices.insert(one.vertices.end(), other.vertices.begin(), other.vertices.end());
    for (const std::uint32_t index : other.indices)
        one.indices.push_back(first + index);
    return one;
}

TEST(ClosedSolid, HasNoBorderAndEveryPartOfItTurnsOutwards) {
    const Mesh box = makeBox(2, 3, 4, 0); // six sides that share no vertices
    const Mesh ring = makeTorus(20, 1, 30, 12);
    EXPECT_TRUE(isClosedSolid(box));
    EXPECT_TRUE(isClosedSolid(ring));
    EXPECT_TRUE(isClosedSolid(together(ring, box)));
    EXPECT_FALSE(isClosedSolid(turnedOver(box)));
    EXPECT_FALSE(isClosedSolid(together(ring, turnedOver(box)))); // though the whole has a volume
    EXPECT_FALSE(isClosedSolid(together(box, makePlane(1, 1))));
    Mesh open = ring;
    open.indices.resize(open.indices.size() - 3);
    EXPECT_FALSE(isClosedSolid(open));
    Mesh twisted = ring;
    std::swap(twisted.indices[0], twisted.indices[1]);
    EXPECT_FALSE(isClosedSolid(twisted));
    Mesh cube = makeBox(2, 2, 2, 0);
    std::size_t corners = 0;
    for (Vertex& vertex : cube.vertices) {
        vertex.position += 1.0F; // one corner of three sides is at 0
        if (vertex.position == glm::vec3(0) && corners++ == 0)
            vertex.position = -vertex.position;
    }
    EXPECT_EQ(corners, 3U);
    EXPECT_TRUE(isClosedSolid(cube)) << "-0 is 0";
}

TEST(MeshLevels, StayAsNearToTheMeshAsTheyTell) {
    const Mesh sphere = makeSphere(100, 200);
    const std::vector<MeshLevel> levels = coarserLevels(sphere);
    ASSERT_GE(levels.size(), 2U);
    std::size_t before = sphere.indices.size();
    for (const MeshLevel& level : levels) {
        EXPECT_LT(4 * level.indices.size(), 3 * before);
        before = level.indices.size();
        double farthest = 0;
        for (std::size_t i = 0; i < level.indices.size(); i += 3) {
            glm::vec3 middle(0);
            for (std::size_t corner = 0; corner < 3; ++corner)
                middle += sphere.vertices[level.indices[i + corner]].position / 3.0F;
            farthest = std::max(farthest, 100.0 - std::hypot(middle.x, middle.y, middle.z));
        }
        // The sphere itself is a polyhedron, which lies up to 0.05 below the round.
        EXPECT_LT(farthest, 2 * level.error + 0.05);
        EXPECT_GT(farthest, 0.2 * level.error);
    }
    EXPECT_TRUE(coarserLevels(makeSphere(100, 20)).empty());
    EXPECT_TRUE(coarserLevels(sphere, [] { return true; }).empty());
}

TEST(MeshLevels, KeepOpenBorders) {
    constexpr std::uint32_t kSide = 80;
    Mesh field;
    for (std::uint32_t i = 0; i < kSide * kSide; ++i) {
        Vertex vertex;
        vertex.position = {i % kSide, i / kSide, 0};
        field.vertices.push_back(vertex);
        if (i % kSide + 1 == kSide || i / kSide + 1 == kSide)
            continue;
        for (const std::uint32_t corner : {i, i + 1, i + kSide, i + 1, i + kSide + 1, i + kSide})
            field.indices.push_back(corner);
    }
    field.elements = {{0, static_cast<std::uint32_t>(field.indices.size())}};
    const std::vector<MeshLevel> levels = coarserLevels(field);
    ASSERT_FALSE(levels.empty());
    const std::set<std::uint32_t> used(levels.back().indices.begin(), levels.back().indices.end());
    for (std::uint32_t i = 0; i < kSide; ++i) {
        EXPECT_TRUE(used.contains(i) && used.contains(kSide * (kSide - 1) + i)) << i;
        EXPECT_TRUE(used.contains(kSide * i) && used.contains(kSide * i + kSide - 1)) << i;
    }
}

} // namespace
} // namespace zelvo::geometry
