// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace zelvo::object {

/// Finds files that another file names: libraries and pictures. Programs write these names in many
/// ways: with the other slash, with the folders of another machine, in other case. Nothing outside
/// the folder is ever found.
class NeighbourFiles {
public:
    /// With an empty path nothing is found.
    explicit NeighbourFiles(std::filesystem::path place);

    /// Tries the relative path, then the bare name in the folder, then both without regard to case.
    [[nodiscard]] std::optional<std::filesystem::path> find(std::string_view name);

    /// The same; then the name with the extension of another picture format.
    [[nodiscard]] std::optional<std::filesystem::path> findPicture(std::string_view name);

private:
    using Names = std::map<std::string, std::string>; ///< by lower case

    [[nodiscard]] std::optional<std::filesystem::path> below(const std::filesystem::path& relative);
    [[nodiscard]] const Names& namesIn(const std::filesystem::path& place);

    std::filesystem::path folder;
    std::map<std::filesystem::path, Names> listed;
};

} // namespace zelvo::object
