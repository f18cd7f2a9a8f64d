// SPDX-License-Identifier: MIT
#pragma once

#include "platform/usd/USDReader.h"

#include <zip.h>

#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::test {

struct PackedFile {
    std::string name;
    std::string content;
};

/// A ZIP archive with these files, stored.
inline std::string packageOf(const std::vector<PackedFile>& files) {
    zip_error_t error{};
    zip_source_t* target = zip_source_buffer_create(nullptr, 0, 0, &error);
    zip_source_keep(target);
    zip_t* archive = zip_open_from_source(target, ZIP_TRUNCATE, &error);
    for (const PackedFile& file : files) {
        auto* source = zip_source_buffer(archive, file.content.data(), file.content.size(), 0);
        const auto index = zip_file_add(archive, file.name.c_str(), source, ZIP_FL_ENC_UTF_8);
        zip_set_file_compression(archive, static_cast<std::uint64_t>(index), ZIP_CM_STORE, 0);
    }
    zip_close(archive);
    zip_source_open(target);
    zip_source_seek(target, 0, SEEK_END);
    std::string bytes(static_cast<std::size_t>(zip_source_tell(target)), '\0');
    zip_source_seek(target, 0, SEEK_SET);
    zip_source_read(target, bytes.data(), bytes.size());
    zip_source_close(target);
    zip_source_free(target);
    return bytes;
}

inline std::span<const std::uint8_t> bytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// Reads a package of these files; the first one is the scene.
inline foundation::Result<object::ObjectScene>
readPackage(const std::vector<PackedFile>& files, const usd::Limits& limits = {}) {
    return usd::readUSD(bytesOf(packageOf(files)), {}, limits);
}

/// Reads one text layer. Its first line is added.
inline foundation::Result<object::ObjectScene> readText(const std::string& text) {
    return usd::readUSD(bytesOf("#usda 1.0\n" + text));
}

/// The attributes of a mesh: a unit square in the xy plane.
inline const std::string kSquare = R"(
    int[] faceVertexCounts = [4]
    int[] faceVertexIndices = [0, 1, 2, 3]
    point3f[] points = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)]
)";

/// A scene with a square that has more statements in its body.
inline std::string squareWith(const std::string& statements) {
    return "def Mesh \"Square\" {" + kSquare + statements + "}\n";
}

} // namespace zelvo::test
