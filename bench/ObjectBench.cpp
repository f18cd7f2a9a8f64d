// SPDX-License-Identifier: MIT

// Reading a large Wavefront OBJ file: a million triangles with normals in 106 MB of text, or without
// in 70 MB. The counter `memory` is the most memory that the process has held, divided by that of
// the finished object. It is right only for the first case of a run; see --benchmark_filter.
#include "platform/foundation/Check.h"
#include "platform/object/reading/ObjectReader.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sys/resource.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using namespace zelvo;

constexpr int kSide = 707; ///< squares; two triangles each
constexpr int kPoints = kSide + 1;

/// A field of waves. With normals, each corner has three long numbers, as exporters write them.
void writeField(const std::filesystem::path& file, bool hasNormals) {
    std::ofstream out(file, std::ios::binary);
    for (int i = 0; i < kPoints * kPoints; ++i) {
        const int x = i % kPoints;
        const int y = i / kPoints;
        out << fmt::format(
            "v {:.6f} {:.6f} {:.6f}\n", x * 0.37, y * 0.41, 20 * std::sin(x * 0.02 + y * 0.03));
        out << fmt::format("vt {:.6f} {:.6f}\n", x / 707.0, y / 707.0);
        if (hasNormals)
            out << fmt::format(
                "vn {:.6f} {:.6f} {:.6f}\n", std::sin(x * 0.02), std::cos(y * 0.03), 0.8);
    }
    const auto corner = [hasNormals](int i) {
        return hasNormals ? fmt::format(" {0}/{0}/{0}", i) : fmt::format(" {0}/{0}", i);
    };
    for (int i = 0; i < kSide * kSide; ++i) {
        const int a = i / kSide * kPoints + i % kSide + 1;
        const int c = a + kPoints;
        out << "f" << corner(a) << corner(a + 1) << corner(c + 1) << "\n";
        out << "f" << corner(a) << corner(c + 1) << corner(c) << "\n";
    }
}

[[nodiscard]] double finalBytes(const object::ObjectScene& scene) {
    double bytes = 0;
    for (const object::Piece& piece : scene.pieces) {
        bytes += static_cast<double>(
            piece.mesh.vertices.size() * sizeof(geometry::Vertex) +
            piece.mesh.indices.size() * sizeof(std::uint32_t));
    }
    return bytes;
}

object::ObjectScene readOrEnd(const std::filesystem::path& file) {
    auto scene = object::readObject(file);
    CHECK(scene.has_value(), "{}", scene.error().message);
    return std::move(*scene);
}

void readField(benchmark::State& state) {
    const auto file = std::filesystem::temp_directory_path() / "zelvo-bench-field.obj";
    writeField(file, state.range(0) != 0);
    double bytes = 1;
    for ([[maybe_unused]] auto _ : state)
        bytes = finalBytes(readOrEnd(file));
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["megabytes"] = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
    state.counters["memory"] = static_cast<double>(usage.ru_maxrss) * 1024 / bytes;
    std::filesystem::remove(file);
}

BENCHMARK(readField)->ArgName("normals")->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

} // namespace
