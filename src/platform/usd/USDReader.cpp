// SPDX-License-Identifier: MIT
#include "platform/usd/USDReader.h"

#include "platform/usd/SceneReader.h"

#include <fstream>
#include <utility>
#include <vector>

namespace zelvo::usd {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

Result<std::vector<std::uint8_t>> bytesOf(const std::filesystem::path& file) {
    std::error_code error;
    const auto size = std::filesystem::file_size(file, error);
    if (error == std::errc::no_such_file_or_directory)
        return fail(Cause::notFound, "there is no such file");
    if (error)
        return fail(Cause::unreadable, "it cannot be read");
    if (size > object::Limits::kMaxFileBytes)
        return fail(Cause::tooLarge, "it is larger than 2 GB");
    std::vector<std::uint8_t> bytes(size);
    std::ifstream in(file, std::ios::binary);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): streams have char pointers
    in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
    if (!in)
        return fail(Cause::unreadable, "it cannot be read");
    return bytes;
}

} // namespace

Result<object::ObjectScene>
readUSD(std::span<const std::uint8_t> bytes, const object::Watch& watch, const Limits& limits) {
    auto assets = Assets::open(bytes, limits);
    if (!assets)
        return tl::unexpected(assets.error());
    const auto stage = Stage::open(*std::move(assets), limits);
    if (!stage)
        return tl::unexpected(stage.error());
    return SceneReader(**stage, limits, watch).read();
}

Result<object::ObjectScene> readUSD(const std::filesystem::path& file, const object::Watch& watch) {
    const auto named = [&file](const foundation::Error& error) {
        return tl::unexpected(error.in(file.filename().string()));
    };
    const auto bytes = bytesOf(file);
    if (!bytes)
        return named(bytes.error());
    auto scene = readUSD(*bytes, watch);
    if (!scene)
        return named(scene.error());
    return scene;
}

} // namespace zelvo::usd
