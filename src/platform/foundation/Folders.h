// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::foundation {

/// The standard folders, handed in at start-up so that tests can hand in their own.
struct Folders {
    std::filesystem::path documents; ///< what is kept between launches (XDG_DATA_HOME/zelvo)
    std::filesystem::path config;    ///< user defaults (XDG_CONFIG_HOME/zelvo)
    std::filesystem::path temporary; ///< shared with others: only for TemporaryFolder
    std::filesystem::path
        videos; ///< the photo library's stand-in: the user's videos folder (XDG_VIDEOS_DIR)

    /// The user's own folders, by the XDG base directory rules. Nothing is made on disk.
    [[nodiscard]] static Folders standard();
    /// All four below one root.
    [[nodiscard]] static Folders below(const std::filesystem::path& root);
};

/// The resource files that come with the program, looked up by name ("Environment001.jpg",
/// "fonts/Abel-Regular.ttf"). Search order: $ZELVO_RESOURCES (one folder), ../share/zelvo as
/// seen from the program, the build tree's baked and source resources, the installed share.
class Bundle {
public:
    explicit Bundle(std::vector<std::filesystem::path> roots);

    [[nodiscard]] static Bundle standard();

    /// The first file of that name; empty if no root has it.
    [[nodiscard]] std::filesystem::path path(const std::string& name) const;

    [[nodiscard]] const std::vector<std::filesystem::path>& roots() const { return roots_; }

private:
    std::vector<std::filesystem::path> roots_;
};

/// The process's bundle, Bundle::standard() until a test sets its own.
[[nodiscard]] const Bundle& mainBundle();
void setMainBundle(Bundle bundle);

} // namespace zelvo::foundation
