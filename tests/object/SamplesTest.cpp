// SPDX-License-Identifier: MIT
#include "platform/object/reading/ObjectReader.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace zelvo::object {

namespace {

/// A row of EXPECT.tsv: file, meshes, points, faces, triangles, materials, textures, box.
struct Expected {
    std::string file, meshes;
    std::size_t points = 0, faces = 0, triangles = 0, materials = 0, textures = 0;
    glm::dvec3 min{}, max{};
};

std::vector<Expected> expectedOf(const std::string& folder) {
    std::ifstream in(folder + "/EXPECT.tsv");
    std::vector<Expected> rows;
    for (std::string line; std::getline(in, line);) {
        Expected row;
        std::istringstream fields(line);
        fields >> row.file >> row.meshes >> row.points >> row.faces >> row.triangles >>
            row.materials >> row.textures >> row.min.x >> row.min.y >> row.min.z >> row.max.x >>
            row.max.y >> row.max.z;
        if (!line.starts_with("#") && fields)
            rows.push_back(row);
    }
    return rows;
}

TEST(Samples, give_the_figures_that_their_list_tells) {
    const char* const folder = std::getenv("ZELVO_SAMPLES");
    if (folder == nullptr)
        GTEST_SKIP() << "ZELVO_SAMPLES names no folder with EXPECT.tsv";
    const std::vector<Expected> rows = expectedOf(folder);
    ASSERT_FALSE(rows.empty());
    for (const Expected& row : rows) {
        SCOPED_TRACE(row.file);
        const auto scene = readObject(std::string(folder) + "/" + row.file);
        ASSERT_TRUE(scene) << scene.error().message;
        const Figures& figures = scene->figures;
        EXPECT_TRUE(row.meshes == "-" || row.meshes == std::to_string(figures.meshes));
        EXPECT_EQ(figures.points, row.points);
        EXPECT_EQ(figures.faces, row.faces);
        EXPECT_EQ(figures.triangles, row.triangles);
        EXPECT_EQ(figures.materials, row.materials);
        EXPECT_EQ(figures.textures, row.textures);
        const double tolerance = 1e-4 * glm::length(row.max - row.min);
        EXPECT_LT(glm::distance(figures.boxMin, row.min), tolerance);
        EXPECT_LT(glm::distance(figures.boxMax, row.max), tolerance);
    }
}

} // namespace

} // namespace zelvo::object
