// SPDX-License-Identifier: MIT

// Reading of USDZ packages of about 50 MB: one mesh of triangles with normals and texture
// coordinates, in binary and in text, and one with many small meshes.

#include "platform/foundation/Check.h"
#include "usd/CrateWriter.h"
#include "usd/Package.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using namespace zelvo;

/// A waved sheet of side x side squares, cut into triangles.
struct Sheet {
    explicit Sheet(int side) {
        for (int y = 0; y <= side; ++y) {
            for (int x = 0; x <= side; ++x) {
                const float u = static_cast<float>(x) / static_cast<float>(side);
                const float v = static_cast<float>(y) / static_cast<float>(side);
                points.insert(points.end(), {u, std::sin(u * 40) * std::cos(v * 30) * 0.02F, v});
                normals.insert(
                    normals.end(), {std::cos(u * 40) * 0.5F, 1, std::sin(v * 30) * 0.5F});
                coordinates.insert(coordinates.end(), {u, v});
            }
        }
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const std::int32_t at = y * (side + 1) + x;
                const std::int32_t below = at + side + 1;
                indices.insert(indices.end(), {at, below, at + 1, at + 1, below, below + 1});
            }
        }
        counts.assign(indices.size() / 3, 3);
    }

    std::vector<float> points, normals, coordinates;
    std::vector<std::int32_t> indices, counts;
};

std::string binaryLayer(const Sheet& sheet, int copies) {
    using enum usd::CrateSpecType;
    test::CrateWriter crate({0, 8, 0});
    const auto def = test::CrateWriter::inlined(42, 0);
    const std::uint32_t root = crate.path(usd::CratePath::kNone, "");
    crate.spec(root, pseudoRoot, {});
    const auto floats =
        [&crate](unsigned type, std::size_t width, const std::vector<float>& values) {
            return crate.array(type, values.size() / width, test::CrateWriter::rawAll(values));
        };
    const auto ints = [&crate](const std::vector<std::int32_t>& values) {
        return crate.packedArray(3, values.size(), test::CrateWriter::packedInts(values));
    };
    const auto vertex = test::CrateWriter::inlined(11, crate.token("vertex"));
    for (int i = 0; i < copies; ++i) {
        const std::uint32_t mesh = crate.path(root, "Sheet" + std::to_string(i));
        crate.spec(
            mesh,
            prim,
            {{"specifier", def},
             {"typeName", test::CrateWriter::inlined(11, crate.token("Mesh"))}});
        const auto add = [&](const std::string& name, std::uint64_t value) {
            crate.spec(
                crate.path(mesh, name, true),
                attribute,
                {{"default", value}, {"interpolation", vertex}});
        };
        add("points", floats(24, 3, sheet.points));
        add("normals", floats(24, 3, sheet.normals));
        add("primvars:st", floats(20, 2, sheet.coordinates));
        add("faceVertexIndices", ints(sheet.indices));
        add("faceVertexCounts", ints(sheet.counts));
    }
    return crate.bytes();
}

std::string textLayer(const Sheet& sheet) {
    std::string text = "#usda 1.0\ndef Mesh \"Sheet\" {\n";
    const auto add = [&text](const std::string& name, const auto& values, std::size_t width) {
        text += name + " = [";
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (width > 1 && i % width == 0)
                text += '(';
            text += std::to_string(values[i]);
            text += width > 1 && i % width == width - 1 ? "), " : ", ";
        }
        text += "]\n";
    };
    add("point3f[] points", sheet.points, 3);
    add("normal3f[] normals", sheet.normals, 3);
    add("texCoord2f[] primvars:st", sheet.coordinates, 2);
    add("int[] faceVertexIndices", sheet.indices, 1);
    add("int[] faceVertexCounts", sheet.counts, 1);
    return text + "}\n";
}

std::size_t trianglesOf(const std::string& package) {
    const auto scene = usd::readUSD(test::bytesOf(package));
    CHECK(scene.has_value(), "{}", scene.error().message);
    return scene->figures.triangles;
}

void readAll(benchmark::State& state, const std::string& name, const std::string& layer) {
    const std::string package = test::packageOf({{name, layer}});
    std::size_t triangles = 0;
    for ([[maybe_unused]] auto _ : state)
        triangles = trianglesOf(package);
    state.counters["MB"] = static_cast<double>(package.size()) / 1e6;
    state.counters["triangles"] = static_cast<double>(triangles);
}

void binaryMesh(benchmark::State& state) {
    readAll(state, "a.usdc", binaryLayer(Sheet(1200), 1));
}

void textMesh(benchmark::State& state) {
    readAll(state, "a.usda", textLayer(Sheet(600)));
}

void manyMeshes(benchmark::State& state) {
    readAll(state, "a.usdc", binaryLayer(Sheet(10), 10000));
}

BENCHMARK(binaryMesh)->Unit(benchmark::kMillisecond);
BENCHMARK(textMesh)->Unit(benchmark::kMillisecond);
BENCHMARK(manyMeshes)->Unit(benchmark::kMillisecond);

} // namespace
