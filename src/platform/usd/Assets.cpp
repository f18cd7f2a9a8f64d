// SPDX-License-Identifier: MIT
#include "platform/usd/Assets.h"

#include "platform/usd/CrateLayer.h"
#include "platform/usd/CrateTables.h"
#include "platform/usd/TextLayer.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <utility>

namespace zelvo::usd {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

std::string_view asText(std::span<const std::uint8_t> bytes) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes as characters
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

bool hasEnding(std::string_view name, std::string_view ending) {
    if (name.size() < ending.size())
        return false;
    return std::ranges::equal(name.substr(name.size() - ending.size()), ending, [](char a, char b) {
        return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b;
    });
}

bool isLayerName(std::string_view name) {
    return hasEnding(name, ".usd") || hasEnding(name, ".usda") || hasEnding(name, ".usdc");
}

bool isLayer(std::span<const std::uint8_t> bytes) {
    return isCrate(bytes) || isTextLayer(asText(bytes));
}

/// Joins folder and path and removes "." and "..". Nothing if it leads out of the archive.
std::optional<std::string> joined(std::string_view folder, std::string_view path) {
    std::vector<std::string> parts;
    std::string whole = fmt::format("{}/{}", folder, path);
    std::ranges::replace(whole, '\\', '/');
    std::size_t at = 0;
    while (at <= whole.size()) {
        const std::size_t end = std::min(whole.find('/', at), whole.size());
        const std::string part = whole.substr(at, end - at);
        at = end + 1;
        if (part == ".." && parts.empty())
            return std::nullopt;
        if (part == "..") {
            parts.pop_back();
        } else if (!part.empty() && part != ".") {
            parts.push_back(part);
        }
    }
    return fmt::format("{}", fmt::join(parts, "/"));
}

std::string_view folderOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? std::string_view() : path.substr(0, slash);
}

/// Where a package begins: its first file; otherwise the first layer in it.
std::optional<std::size_t> rootFileOf(const Archive& archive) {
    const auto found = std::ranges::find_if(archive.names(), isLayerName);
    if (found == archive.names().end())
        return std::nullopt;
    return static_cast<std::size_t>(found - archive.names().begin());
}

} // namespace

Assets::Assets(const Limits& allowed)
    : limits(allowed)
    , unpackedBytes(allowed.unpackedBytes)
    , valueBytes(std::make_shared<Budget>(allowed.valueBytes)) {}

Result<std::unique_ptr<Assets>>
Assets::open(std::span<const std::uint8_t> bytes, const Limits& limits) {
    std::unique_ptr<Assets> assets(new Assets(limits));
    if (isLayer(bytes)) {
        assets->lone = bytes;
        assets->packages.push_back(std::make_unique<Package>());
        return assets;
    }
    if (!isArchive(bytes))
        return fail(Cause::malformed, "it is not a scene");
    const auto added = assets->addPackage(bytes, 0);
    if (!added)
        return tl::unexpected(added.error());
    // A package may begin with another one.
    std::size_t package = *added;
    for (int depth = 0; depth < kMaxPackageDepth; ++depth) {
        const Package& at = *assets->packages[package];
        assets->root = {package, at.rootFile};
        if (!hasEnding(at.archive->names()[at.rootFile], ".usdz"))
            break;
        const auto inner = assets->innerPackage(assets->root);
        if (!inner)
            return fail(Cause::malformed, "the archive in it cannot be opened");
        package = *inner;
    }
    return assets;
}

Result<std::size_t> Assets::addPackage(std::span<const std::uint8_t> bytes, int depth) {
    if (depth > kMaxPackageDepth)
        return fail(Cause::tooLarge, "archives are nested too deeply");
    auto archive = Archive::open(bytes, limits);
    if (!archive)
        return tl::unexpected(archive.error());
    auto package = std::make_unique<Package>();
    package->archive = *std::move(archive);
    package->depth = depth;
    const auto& names = package->archive->names();
    auto rootFile = rootFileOf(*package->archive);
    if (!names.empty() && hasEnding(names.front(), ".usdz"))
        rootFile = 0;
    if (!rootFile)
        return fail(Cause::malformed, "there is no scene in the archive");
    package->rootFile = *rootFile;
    packages.push_back(std::move(package));
    return packages.size() - 1;
}

std::optional<std::size_t> Assets::innerPackage(AssetId id) {
    Package& outer = *packages[id.package];
    const auto [place, isNew] = outer.inner.try_emplace(id.file);
    if (!isNew)
        return place->second;
    auto content = outer.archive->read(id.file, unpackedBytes);
    if (!content)
        return std::nullopt;
    const auto added = addPackage(*content, outer.depth + 1);
    if (!added)
        return std::nullopt;
    packages[*added]->held = *std::move(content); // moves the owner, not the bytes
    place->second = *added;
    return *added;
}

std::optional<std::size_t> Assets::findFile(std::string_view path, AssetId layer) const {
    const Package& package = *packages[layer.package];
    const auto& names = package.archive->names();
    for (const std::size_t anchor : {layer.file, package.rootFile}) {
        const auto name = joined(folderOf(names[anchor]), path);
        const auto found = name ? package.archive->find(*name) : std::nullopt;
        if (found)
            return found;
    }
    std::string plain(path);
    std::ranges::replace(plain, '\\', '/');
    return package.archive->findAnywhere(plain);
}

std::optional<AssetId> Assets::resolve(std::string_view path, AssetId layer) {
    if (path.empty() || packages[layer.package]->archive == nullptr)
        return std::nullopt;
    std::string_view inside;
    const std::size_t bracket = path.find('[');
    if (bracket != std::string_view::npos && path.ends_with(']')) {
        inside = path.substr(bracket + 1, path.size() - bracket - 2);
        path = path.substr(0, bracket);
    }
    const auto file = findFile(path, layer);
    if (!file)
        return std::nullopt;
    const AssetId id{layer.package, *file};
    if (!hasEnding(name(id), ".usdz"))
        return inside.empty() ? std::optional(id) : std::nullopt;
    const auto inner = innerPackage(id);
    if (!inner)
        return std::nullopt;
    const AssetId begin{*inner, packages[*inner]->rootFile};
    // Each step goes one package deeper, of which there are kMaxPackageDepth.
    const std::string next = inside.empty() ? name(begin) : std::string(inside);
    if (inside.empty() && !hasEnding(next, ".usdz"))
        return begin;
    return resolve(next, begin);
}

Result<std::vector<std::uint8_t>> Assets::bytes(AssetId id) {
    const Package& package = *packages[id.package];
    return package.archive->read(id.file, unpackedBytes);
}

std::string Assets::name(AssetId id) const {
    const Package& package = *packages[id.package];
    return package.archive == nullptr ? std::string() : package.archive->names()[id.file];
}

Result<std::unique_ptr<Layer>> Assets::readLayer(AssetId id) {
    std::span<const std::uint8_t> content = lone;
    if (packages[id.package]->archive != nullptr) {
        auto read = bytes(id);
        if (!read)
            return tl::unexpected(read.error());
        content = layerBytes[id] = *std::move(read);
    }
    if (isCrate(content))
        return readCrateLayer(content, valueBytes);
    if (isTextLayer(asText(content)))
        return readTextLayer(asText(content), valueBytes);
    return fail(Cause::malformed, "it is not a scene");
}

Result<const Layer*> Assets::layer(AssetId id) {
    auto place = layers.find(id);
    if (place == layers.end())
        place = layers.emplace(id, readLayer(id)).first;
    if (place->second)
        return place->second->get();
    const std::string file = name(id);
    return tl::unexpected(file.empty() ? place->second.error() : place->second.error().in(file));
}

} // namespace zelvo::usd
