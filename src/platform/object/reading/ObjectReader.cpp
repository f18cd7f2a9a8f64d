// SPDX-License-Identifier: MIT
#include "platform/object/reading/ObjectReader.h"

#include "platform/object/reading/GLTFReader.h"
#include "platform/object/reading/OBJReader.h"
#include "platform/object/reading/STLReader.h"
#include "platform/object/reading/Words.h"
#include "platform/usd/USDReader.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>

namespace zelvo::object {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace fs = std::filesystem;

namespace {

/// A file that is open for reading.
struct OpenFile {
    fs::path path;
    std::uint64_t size = 0;
    ByteSource bytes;
};

[[nodiscard]] Result<OpenFile> open(const fs::path& path) {
    std::error_code error;
    if (!fs::exists(path, error))
        return fail(Cause::notFound, "there is no such file");
    auto bytes = sourceOfFile(path);
    if (!bytes)
        return fail(Cause::unreadable, "it cannot be opened for reading");
    const std::uint64_t size = fs::file_size(path, error);
    if (error || size > Limits::kMaxFileBytes)
        return fail(Cause::tooLarge, "the file is above two gigabytes");
    return OpenFile{path, size, *std::move(bytes)};
}

[[nodiscard]] Result<ObjectScene> readOBJFile(const OpenFile& file, const Watch& watch) {
    return readOBJ(
        {file.bytes,
         file.size,
         file.path.filename().string(),
         NeighbourFiles(fs::absolute(file.path).parent_path())},
        watch);
}

[[nodiscard]] Result<ObjectScene> readSTLFile(const OpenFile& file, const Watch& watch) {
    return readSTL(file.bytes, file.size, file.path.stem().string(), watch);
}

[[nodiscard]] Result<std::vector<std::uint8_t>> wholeOf(const OpenFile& file) {
    std::vector<std::uint8_t> bytes(file.size);
    std::size_t count = 0;
    while (count < bytes.size()) {
        // NOLINTNEXTLINE: a source gives characters
        char* const target = reinterpret_cast<char*>(bytes.data()) + count;
        const std::size_t more = file.bytes({target, bytes.size() - count});
        if (more == 0)
            return fail(Cause::unreadable, "it cannot be read to its end");
        count += more;
    }
    return bytes;
}

[[nodiscard]] Result<ObjectScene> readGLTFFile(const OpenFile& file, const Watch& watch) {
    const auto bytes = wholeOf(file);
    if (!bytes)
        return tl::unexpected(bytes.error());
    return readGLTF(*bytes, NeighbourFiles(fs::absolute(file.path).parent_path()), watch);
}

[[nodiscard]] Result<ObjectScene> readUSDFile(const OpenFile& file, const Watch& watch) {
    const auto bytes = wholeOf(file);
    return bytes ? usd::readUSD(*bytes, watch) : tl::unexpected(bytes.error());
}

struct Format {
    std::string_view extension;
    Result<ObjectScene> (*read)(const OpenFile& file, const Watch& watch);
};

constexpr auto kFormats = std::to_array<Format>({
    {".obj", &readOBJFile},
    {".stl", &readSTLFile},
    {".gltf", &readGLTFFile},
    {".glb", &readGLTFFile},
    {".usdz", &readUSDFile},
    {".usda", &readUSDFile},
    {".usdc", &readUSDFile},
    {".usd", &readUSDFile},
});

} // namespace

std::span<const std::string_view> objectExtensions() {
    static const auto extensions = [] {
        std::array<std::string_view, kFormats.size()> all;
        std::ranges::transform(kFormats, all.begin(), &Format::extension);
        return all;
    }();
    return extensions;
}

Result<ObjectScene> readObject(const fs::path& file, const Watch& watch) {
    const std::string name = file.filename().string();
    const std::string extension = lowered(file.extension().string());
    const auto* format = std::ranges::find(kFormats, extension, &Format::extension);
    if (format == kFormats.end()) {
        return fail(
            Cause::unsupported, name + ": this is no 3D object; use a USDZ, OBJ, glTF or STL file");
    }
    const auto opened = open(file);
    if (!opened)
        return tl::unexpected(opened.error().in(name));
    auto scene = format->read(*opened, watch);
    return scene ? std::move(scene) : tl::unexpected(scene.error().in(name));
}

} // namespace zelvo::object
