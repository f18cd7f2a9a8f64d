// SPDX-License-Identifier: MIT
#include "platform/foundation/Folders.h"

#include <QStandardPaths>

#include <cstdlib>
#include <utility>

namespace zelvo::foundation {

namespace {

std::filesystem::path standardPath(QStandardPaths::StandardLocation location) {
    return QStandardPaths::writableLocation(location).toStdString();
}

/// Qt 6.4 does not know this folder. A relative path in the variable counts as none (XDG).
std::filesystem::path stateHome() {
    const char* const given = std::getenv("XDG_STATE_HOME");
    if (given != nullptr && std::filesystem::path(given).is_absolute())
        return given;
    return standardPath(QStandardPaths::HomeLocation) / ".local/state";
}

Bundle& currentBundle() {
    static Bundle bundle = Bundle::standard();
    return bundle;
}

} // namespace

Folders Folders::standard() {
    return {
        .documents = standardPath(QStandardPaths::GenericDataLocation) / "zelvo",
        .config = standardPath(QStandardPaths::GenericConfigLocation) / "zelvo",
        .temporary = standardPath(QStandardPaths::TempLocation),
        .videos = standardPath(QStandardPaths::MoviesLocation),
        .music = standardPath(QStandardPaths::MusicLocation),
        .cache = standardPath(QStandardPaths::GenericCacheLocation) / "zelvo",
        .state = stateHome() / "zelvo",
    };
}

Folders Folders::below(const std::filesystem::path& root) {
    return {
        root / "documents",
        root / "config",
        root / "temporary",
        root / "videos",
        root / "music",
        root / "cache",
        root / "state"};
}

Bundle::Bundle(std::vector<std::filesystem::path> roots)
    : roots_(std::move(roots)) {}

Bundle Bundle::standard() {
    if (const char* given = std::getenv("ZELVO_RESOURCES"))
        return Bundle({given});
    // Beside the program first: an installed program may have been moved while its build tree still
    // exists.
    std::error_code ignored;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", ignored);
    return Bundle(
        {program.parent_path().parent_path() / "share/zelvo",
         ZELVO_BAKED_RESOURCES,
         ZELVO_SOURCE_RESOURCES,
         ZELVO_INSTALLED_RESOURCES});
}

std::filesystem::path Bundle::path(const std::string& name) const {
    for (const auto& root : roots_) {
        std::error_code ignored;
        auto file = root / name;
        if (std::filesystem::exists(file, ignored))
            return file;
    }
    return {};
}

const Bundle& mainBundle() {
    return currentBundle();
}

void setMainBundle(Bundle bundle) {
    currentBundle() = std::move(bundle);
}

} // namespace zelvo::foundation
