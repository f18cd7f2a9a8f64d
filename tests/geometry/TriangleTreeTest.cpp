// SPDX-License-Identifier: MIT
#include "platform/geometry/TriangleTree.h"

#include "platform/geometry/Primitives.h"

#include <glm/geometric.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace zelvo::geometry {

namespace {

const auto kAll = [](const RayHit&) { return true; };

class Dice {
public:
    glm::vec3 point(float reach) { return {number(reach), number(reach), number(reach)}; }

private:
    float number(float reach) {
        return std::uniform_real_distribution<float>(-reach, reach)(source);
    }

    std::mt19937 source{7}; // always the same numbers
};

Mesh looseTriangles(Dice& dice, std::uint32_t count) {
    Mesh mesh;
    for (std::uint32_t i = 0; i < count; ++i) {
        const glm::vec3 place = dice.point(100);
        for (std::uint32_t corner = 0; corner < 3; ++corner) {
            mesh.vertices.push_back({.position = place + dice.point(12)});
            mesh.indices.push_back(3 * i + corner);
        }
    }
    return mesh;
}

/// The distance to a triangle by its plane and the three sides of its edges.
std::optional<float> distanceTo(const Mesh& mesh, std::uint32_t triangle, const Ray& ray) {
    const auto corner = [&](std::uint32_t i) {
        return mesh.vertices[mesh.indices[3 * triangle + i % 3]].position;
    };
    const glm::vec3 normal = glm::cross(corner(1) - corner(0), corner(2) - corner(0));
    const float distance =
        glm::dot(corner(0) - ray.origin, normal) / glm::dot(ray.direction, normal);
    const glm::vec3 met = ray.origin + distance * ray.direction;
    for (std::uint32_t i = 0; i < 3; ++i) {
        if (glm::dot(glm::cross(corner(i + 1) - corner(i), met - corner(i)), normal) < 0)
            return std::nullopt;
    }
    return distance >= 0 ? std::optional(distance) : std::nullopt;
}

std::optional<float> nearestOfAll(const Mesh& mesh, const Ray& ray) {
    std::optional<float> best;
    for (std::uint32_t i = 0; i < mesh.indices.size() / 3; ++i) {
        const std::optional<float> distance = distanceTo(mesh, i, ray);
        if (distance && (!best || *distance < *best))
            best = distance;
    }
    return best;
}

TEST(TriangleTree, FindsWhatASearchThroughAllTrianglesFinds) {
    Dice dice;
    int hits = 0;
    for (const std::uint32_t count : {0U, 1U, 4U, 5U, 300U, 2000U}) {
        const Mesh mesh = looseTriangles(dice, count);
        const TriangleTree tree(mesh);
        for (int i = 0; i < 300; ++i) {
            const glm::vec3 eye = dice.point(200);
            const Ray ray{eye, dice.point(60) - eye};
            const std::optional<float> expected = nearestOfAll(mesh, ray);
            const std::optional<RayHit> found = tree.nearest(ray, kAll);
            ASSERT_EQ(found.has_value(), expected.has_value()) << count << " triangles, ray " << i;
            if (!found)
                continue;
            ++hits;
            EXPECT_NEAR(found->distance, *expected, 1e-3f * *expected) << count << ", ray " << i;
        }
    }
    EXPECT_GT(hits, 300); // enough rays meet something
}

TEST(TriangleTree, TellsTheSideAndPlaceOfAHitAndObeysARefusal) {
    const Mesh plane = makePlane(4, 2);
    const TriangleTree tree(plane);
    for (const float side : {1.0f, -1.0f}) {
        const auto hit = tree.nearest({{1, 0.5f, 3 * side}, {0, 0, -side}}, kAll);
        ASSERT_TRUE(hit);
        EXPECT_EQ(hit->isFront, side > 0);
        EXPECT_FLOAT_EQ(hit->distance, 3);
        const auto corner = [&](std::uint32_t i) {
            return plane.vertices[plane.indices[3 * hit->triangle + i]].position;
        };
        const glm::vec3 place = corner(0) + hit->weights.x * (corner(1) - corner(0)) +
                                hit->weights.y * (corner(2) - corner(0));
        EXPECT_NEAR(glm::distance(place, {1, 0.5f, 0}), 0, 1e-5f);
    }
    EXPECT_FALSE(tree.nearest({{-9, 0, 0}, {1, 0, 0}}, kAll)); // in the plane of the triangles

    const TriangleTree ball(makeSphere(5, 32));
    const auto far = ball.nearest(
        {{0.1f, 0.2f, 50}, {0, 0, -1}}, [](const RayHit& hit) { return !hit.isFront; });
    ASSERT_TRUE(far);
    EXPECT_NEAR(far->distance, 55, 0.1);
}

} // namespace

} // namespace zelvo::geometry
