// SPDX-License-Identifier: MIT
#include "platform/usd/USDReader.h"

#include <glm/geometric.hpp>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace zelvo::usd {
namespace {

/// Three numbers, separated by blanks.
glm::dvec3 vectorIn(const std::string& text) {
    std::istringstream in(text);
    glm::dvec3 v(0);
    in >> v.x >> v.y >> v.z;
    return v;
}

void expectFigures(const std::filesystem::path& folder, std::istringstream& row) {
    const auto cell = [&row] {
        std::string text;
        std::getline(row, text, '\t');
        return text;
    };
    const std::string file = cell();
    SCOPED_TRACE(file);
    const auto scene = readUSD(folder / file);
    ASSERT_TRUE(scene) << scene.error().message;
    const object::Figures& found = scene->figures;
    EXPECT_EQ(std::to_string(found.meshes), cell());
    EXPECT_EQ(std::to_string(found.points), cell());
    EXPECT_EQ(std::to_string(found.faces), cell());
    EXPECT_EQ(std::to_string(found.triangles), cell());
    EXPECT_EQ(std::to_string(found.materials), cell());
    EXPECT_EQ(std::to_string(found.textures), cell());
    const glm::dvec3 min = vectorIn(cell());
    const glm::dvec3 max = vectorIn(cell());
    const double tolerance = 1e-4 * glm::distance(min, max);
    EXPECT_LT(glm::distance(found.boxMin, min), tolerance)
        << found.boxMin.x << " " << found.boxMin.y << " " << found.boxMin.z;
    EXPECT_LT(glm::distance(found.boxMax, max), tolerance)
        << found.boxMax.x << " " << found.boxMax.y << " " << found.boxMax.z;
}

} // namespace

/// The folder in ZELVO_SAMPLES holds files and a table of what a right reader finds in them.
TEST(SamplesTest, FiguresOfRealFiles) {
    const char* samples = std::getenv("ZELVO_SAMPLES");
    if (samples == nullptr)
        GTEST_SKIP() << "ZELVO_SAMPLES is not set";
    const std::filesystem::path folder(samples);
    std::ifstream table(folder / "EXPECT.tsv");
    int rows = 0;
    for (std::string line; std::getline(table, line);) {
        if (!line.starts_with("usdz/"))
            continue;
        std::istringstream row(line);
        expectFigures(folder, row);
        ++rows;
    }
    EXPECT_GT(rows, 0);
}

} // namespace zelvo::usd
