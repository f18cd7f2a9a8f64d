// SPDX-License-Identifier: MIT
#include "platform/object/reading/NeighbourFiles.h"

#include "platform/object/reading/Words.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

namespace zelvo::object {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMaxName = 4096;
constexpr std::size_t kMaxListed = 100'000; ///< files of a folder
constexpr auto kPictureExtensions = std::to_array<const char*>(
    {".png", ".jpg", ".jpeg", ".tga", ".webp", ".bmp", ".tif", ".tiff", ".gif"});

/// With plain slashes, without quotes. An absolute path loses its folders.
[[nodiscard]] fs::path plainPath(std::string_view name) {
    std::string text(name);
    std::erase(text, '"');
    std::ranges::replace(text, '\\', '/');
    const bool hasDrive = text.size() > 1 && text[1] == ':';
    const bool isAbsolute = hasDrive || text.starts_with('/');
    const fs::path path = fs::path(text).lexically_normal();
    return isAbsolute ? path.filename() : path;
}

[[nodiscard]] bool isFile(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

} // namespace

NeighbourFiles::NeighbourFiles(fs::path place)
    : folder(std::move(place)) {}

std::optional<fs::path> NeighbourFiles::find(std::string_view name) {
    if (folder.empty() || name.size() > kMaxName || name.find('\0') != std::string_view::npos)
        return std::nullopt;
    const fs::path path = plainPath(name);
    const fs::path bare = path.filename();
    if (bare.empty() || bare == "." || bare == "..")
        return std::nullopt;
    const bool leaves = *path.begin() == "..";
    if (!leaves && isFile(folder / path))
        return folder / path;
    if (isFile(folder / bare))
        return folder / bare;
    if (auto found = leaves ? std::nullopt : below(path))
        return found;
    return below(bare);
}

std::optional<fs::path> NeighbourFiles::findPicture(std::string_view name) {
    if (auto found = find(name))
        return found;
    if (name.size() > kMaxName)
        return std::nullopt;
    for (const char* extension : kPictureExtensions) {
        fs::path other = plainPath(name);
        if (auto found = find(other.replace_extension(extension).string()))
            return found;
    }
    return std::nullopt;
}

/// Without regard to case, folder by folder.
std::optional<fs::path> NeighbourFiles::below(const fs::path& relative) {
    fs::path place = folder;
    for (const fs::path& part : relative) {
        const Names& names = namesIn(place);
        const auto found = names.find(lowered(part.string()));
        if (found == names.end())
            return std::nullopt;
        place /= found->second;
    }
    return isFile(place) ? std::optional(place) : std::nullopt;
}

const NeighbourFiles::Names& NeighbourFiles::namesIn(const fs::path& place) {
    const auto [entry, isNew] = listed.try_emplace(place);
    if (!isNew)
        return entry->second;
    std::error_code error;
    Names& names = entry->second;
    for (fs::directory_iterator each(place, error);
         !error && each != fs::directory_iterator() && names.size() < kMaxListed;
         each.increment(error)) {
        const std::string name = each->path().filename().string();
        const auto [known, isFirst] = names.emplace(lowered(name), name);
        if (!isFirst) // the folder's own order is not always the same
            known->second = std::min(known->second, name);
    }
    return names;
}

} // namespace zelvo::object
