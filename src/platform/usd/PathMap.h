// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::usd {

/// Takes the variants out of a path: "/A{look=red}B" is the prim "/A/B".
[[nodiscard]] std::string withoutVariants(std::string_view path);
/// Whether the path is `start` or something below it.
[[nodiscard]] bool isAtOrBelow(std::string_view path, std::string_view start);
/// The names along the path of a prim.
[[nodiscard]] std::vector<std::string> elementsOf(std::string_view path);

/// Says what a path, written in a layer that is referenced, means where it is referenced.
struct PathMap {
    std::string source; ///< the referenced prim
    std::string target; ///< the referencing one
    /// Paths outside of the referenced prim mean themselves; otherwise they mean nothing.
    bool keepsOthers = false;
    std::shared_ptr<const PathMap> next; ///< from there to the scene; null if the target is in it

    /// Empty if the path means nothing in the scene.
    [[nodiscard]] std::string apply(std::string_view path) const;
};

using PathMapPtr = std::shared_ptr<const PathMap>;

} // namespace zelvo::usd
