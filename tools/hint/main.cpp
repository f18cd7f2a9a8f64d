// SPDX-License-Identifier: MIT
// zelvo_hint PERFORMANCE.json MOVIE.mp4 KEY: makes the movie that shows how to record an action,
// unless it was already made with this key.
#include "HintMovie.h"
#include "platform/foundation/Process.h"

#include <fmt/format.h>
#include <unistd.h>

#include <QGuiApplication>

#include <cstdio>
#include <fstream>
#include <string>
#include <system_error>

namespace {

using zelvo::foundation::Cause;

std::string keyIn(const std::filesystem::path& stamp) {
    std::string key;
    std::ifstream(stamp) >> key;
    return key;
}

} // namespace

int main(int argc, char** argv) {
    zelvo::foundation::prepareProcess();
    if (argc != 4) {
        fmt::print(stderr, "usage: zelvo_hint PERFORMANCE.json MOVIE.mp4 KEY\n");
        return 2;
    }
    const std::filesystem::path movie = argv[2];
    const std::filesystem::path stamp =
        movie.parent_path() / fmt::format(".{}.key", movie.stem().string());
    std::error_code error;
    if (std::filesystem::exists(movie, error) && keyIn(stamp) == argv[3])
        return 0;

    // Several build trees may share the folder, so write to a temporary file first.
    const std::filesystem::path made =
        movie.parent_path() / fmt::format(".{}-{}", getpid(), movie.filename().string());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const auto result = zelvo::hint::makeHintMovie(argv[1], made);
    if (!result) {
        std::filesystem::remove(made, error);
        fmt::print(stderr, "zelvo_hint: {}\n", result.error().message);
        // The program works without the hint if nothing can be drawn.
        return result.error().cause == Cause::unavailable ? 0 : 1;
    }
    std::filesystem::rename(made, movie, error);
    if (error) {
        fmt::print(stderr, "zelvo_hint: {}: {}\n", movie.string(), error.message());
        return 1;
    }
    std::ofstream(stamp) << argv[3] << '\n';
    return 0;
}
