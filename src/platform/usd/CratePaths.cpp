// SPDX-License-Identifier: MIT
#include "platform/usd/CratePaths.h"

#include "platform/usd/CrateCompression.h"
#include "platform/usd/Limits.h"

#include <cstdlib>

namespace zelvo::usd {
namespace {

/// Where the next path hangs in the tree.
struct Place {
    std::uint64_t at = 0; ///< of its entry, or of its record
    std::uint32_t parent = CratePath::kNone;
    int depth = 0;
};

/// False if the path is there already: a tree whose paths are each filled once has no circles.
bool fill(std::vector<CratePath>& paths, std::uint32_t index, CratePath path, int depth) {
    // A path of prims can end in variants and a property.
    constexpr int kDeepest = 3 * kMaxDepth;
    if (index >= paths.size() || paths[index].isFilled || depth > kDeepest)
        return false;
    path.isFilled = true;
    paths[index] = path;
    return true;
}

} // namespace

bool readPackedPaths(ByteReader& reader, std::vector<CratePath>& paths) {
    const auto count = reader.read<std::uint64_t>();
    if (count > paths.size())
        return false;
    const auto indices = readPackedInts(reader, count);
    const auto elements = indices ? readPackedInts(reader, count) : std::nullopt;
    const auto jumps = elements ? readPackedInts(reader, count) : std::nullopt;
    if (!jumps || reader.hasFailed())
        return false;
    std::vector<Place> open;
    if (count > 0)
        open.push_back({});
    while (!open.empty()) {
        const Place place = open.back();
        open.pop_back();
        if (place.at >= count)
            return false;
        const auto index = static_cast<std::uint32_t>((*indices)[place.at]);
        const std::int64_t element = (*elements)[place.at];
        const CratePath path{
            place.parent, static_cast<std::uint32_t>(std::abs(element)), element < 0};
        if (!fill(paths, index, path, place.depth))
            return false;
        const std::int64_t jump = (*jumps)[place.at];
        const bool hasChild = jump > 0 || jump == -1;
        if (jump >= 0) {
            const std::uint64_t step = hasChild ? static_cast<std::uint64_t>(jump) : 1;
            open.push_back({place.at + step, place.parent, place.depth});
        }
        if (hasChild)
            open.push_back({place.at + 1, index, place.depth + 1});
    }
    return true;
}

bool readPathTree(ByteReader& reader, CrateVersion version, std::vector<CratePath>& paths) {
    constexpr CrateVersion kUnpadded{0, 1, 0};
    constexpr unsigned kHasChild = 1;
    constexpr unsigned kHasSibling = 2;
    constexpr unsigned kIsProperty = 4;
    std::vector<Place> open;
    if (!paths.empty())
        open.push_back({reader.position()});
    while (!open.empty()) {
        const Place place = open.back();
        open.pop_back();
        reader.seek(place.at);
        if (version < kUnpadded)
            static_cast<void>(reader.read<std::uint32_t>());
        const auto index = reader.read<std::uint32_t>();
        const auto element = reader.read<std::uint32_t>();
        const unsigned bits = reader.read<std::uint32_t>() & 0xFFU;
        const bool hasBoth = (bits & kHasChild) != 0 && (bits & kHasSibling) != 0;
        const std::uint64_t sibling = hasBoth ? reader.read<std::uint64_t>() : reader.position();
        const CratePath path{place.parent, element, (bits & kIsProperty) != 0};
        if (reader.hasFailed() || !fill(paths, index, path, place.depth))
            return false;
        if ((bits & kHasSibling) != 0)
            open.push_back({sibling, place.parent, place.depth});
        if ((bits & kHasChild) != 0)
            open.push_back({reader.position(), index, place.depth + 1});
    }
    return true;
}

} // namespace zelvo::usd
