// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::foundation {

/// The standard folders. Passed in at start-up, so that tests can use their own.
struct Folders {
    std::filesystem::path documents; ///< data kept between launches (XDG_DATA_HOME/zelvo)
    std::filesystem::path config;    ///< user defaults (XDG_CONFIG_HOME/zelvo)
    /// shared with other programs: use it only for TemporaryFolder
    std::filesystem::path temporary;
    /// The user's videos folder (XDG_VIDEOS_DIR); used as the photo library.
    std::filesystem::path videos;
    std::filesystem::path music; ///< the user's music folder (XDG_MUSIC_DIR)
    /// What can be made again if it is deleted (XDG_CACHE_HOME/zelvo)
    std::filesystem::path cache;
    /// What must outlive a crash, but is no document (XDG_STATE_HOME/zelvo)
    std::filesystem::path state;

    /// The user's folders, by the XDG base directory rules. Creates nothing on disk.
    [[nodiscard]] static Folders standard();
    /// All folders inside one root folder.
    [[nodiscard]] static Folders below(const std::filesystem::path& root);
};

/// Finds the program's resource files by name ("Environment001.jpg", "fonts/Abel-Regular.ttf").
/// Search order: $ZELVO_RESOURCES (one folder), ../share/zelvo relative to the program, the build
/// tree's baked and source resources, the installed share folder.
class Bundle {
public:
    explicit Bundle(std::vector<std::filesystem::path> roots);

    [[nodiscard]] static Bundle standard();

    /// The first file with that name; empty if there is none.
    [[nodiscard]] std::filesystem::path path(const std::string& name) const;

    [[nodiscard]] const std::vector<std::filesystem::path>& roots() const { return roots_; }

private:
    std::vector<std::filesystem::path> roots_;
};

/// The process's bundle: Bundle::standard() unless a test has set its own.
[[nodiscard]] const Bundle& mainBundle();
void setMainBundle(Bundle bundle);

} // namespace zelvo::foundation
