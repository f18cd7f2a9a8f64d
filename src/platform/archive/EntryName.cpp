// SPDX-License-Identifier: MIT
#include "platform/archive/EntryName.h"

#include <fmt/format.h>

#include <algorithm>

namespace zelvo::archive {

namespace {

using foundation::Cause;

bool isControl(char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

bool isAbsolute(const std::string& name) {
    return name.starts_with('/') || (name.size() > 1 && name[1] == ':');
}

} // namespace

foundation::Result<std::filesystem::path> entryPath(std::string name, std::size_t maxDepth) {
    if (std::ranges::any_of(name, &isControl))
        return foundation::fail(
            Cause::malformed, "holds a file with control characters in its name");
    std::ranges::replace(name, '\\', '/');
    if (isAbsolute(name)) {
        return foundation::fail(
            Cause::malformed, fmt::format("holds a file with an absolute path ({})", name));
    }
    std::filesystem::path path;
    std::size_t depth = 0;
    for (const auto& part : std::filesystem::path(name)) {
        if (part == "..") {
            return foundation::fail(
                Cause::malformed,
                fmt::format("holds a file that would land outside of its folder ({})", name));
        }
        if (part.empty() || part == ".")
            continue;
        path /= part;
        ++depth;
    }
    if (path.empty())
        return foundation::fail(Cause::malformed, "holds a file without a name");
    if (depth > maxDepth) {
        return foundation::fail(
            Cause::tooLarge, fmt::format("has folders more than {} levels deep", maxDepth));
    }
    return path;
}

} // namespace zelvo::archive
