// SPDX-License-Identifier: MIT
// zelvo_thumbnails FOLDER KEY: draws the small pictures of materials, environments, shapes and masks
// into FOLDER/thumbnails, unless they were already drawn with this key.
#include "Thumbnails.h"
#include "platform/foundation/Process.h"

#include <fmt/format.h>
#include <unistd.h>

#include <QGuiApplication>

#include <cstdio>
#include <fstream>
#include <string>
#include <system_error>

namespace {

std::string keyIn(const std::filesystem::path& folder) {
    std::string key;
    std::ifstream(folder / "thumbnails" / "key") >> key;
    return key;
}

/// Puts the new pictures in the place of the old ones. Another build tree may do the same now.
std::error_code exchange(const std::filesystem::path& made, const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::remove_all(folder / "thumbnails", error);
    std::filesystem::rename(made / "thumbnails", folder / "thumbnails", error);
    return error;
}

} // namespace

int main(int argc, char** argv) {
    zelvo::foundation::prepareProcess();
    if (argc != 3) {
        fmt::print(stderr, "usage: zelvo_thumbnails FOLDER KEY\n");
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    if (keyIn(folder) == argv[2])
        return 0;

    const std::filesystem::path made = folder / fmt::format(".thumbnails-{}", getpid());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    auto result = zelvo::thumbnails::drawThumbnails(made);
    std::error_code error;
    if (result) {
        std::ofstream(made / "thumbnails" / "key") << argv[2] << '\n';
        error = exchange(made, folder);
    }
    std::error_code ignored;
    std::filesystem::remove_all(made, ignored);
    if (!result) {
        fmt::print(stderr, "zelvo_thumbnails: {}\n", result.error().message);
        // The program works without the pictures if nothing can be drawn.
        return result.error().cause == zelvo::foundation::Cause::unavailable ? 0 : 1;
    }
    if (error && keyIn(folder) != argv[2]) {
        fmt::print(stderr, "zelvo_thumbnails: {}: {}\n", folder.string(), error.message());
        return 1;
    }
    return 0;
}
