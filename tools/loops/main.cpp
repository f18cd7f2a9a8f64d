// SPDX-License-Identifier: MIT
// zelvo_loops FOLDER KEY: draws the loop of each button of the catalogue into FOLDER/loops, unless
// they were already drawn with this key.
#include "Loop.h"
#include "catalogue/ActionLoop.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/NewFile.h"
#include "platform/foundation/Process.h"
#include "platform/foundation/TemporaryFolder.h"

#include <fmt/format.h>

#include <QGuiApplication>

#include <cstdio>
#include <fstream>
#include <span>
#include <string>
#include <system_error>

namespace {

namespace fs = std::filesystem;
using namespace zelvo;
using foundation::Result;

[[nodiscard]] std::string keyIn(const fs::path& file) {
    std::string key;
    std::ifstream(file) >> key;
    return key;
}

/// Several build trees may share the folder, so a file appears whole.
[[nodiscard]] Result<void> save(const QByteArray& bytes, const fs::path& file) {
    auto made = foundation::NewFile::create(file, foundation::NewFile::Use::temporary);
    if (!made)
        return tl::unexpected(made.error());
    if (auto written = made->write(std::as_bytes(std::span(bytes.data(), bytes.size()))); !written)
        return written;
    return made->commit();
}

[[nodiscard]] Result<void> drawAll(const fs::path& folder) {
    const auto renderer = render::SCNRenderer::make();
    if (!renderer)
        return tl::unexpected(renderer.error());
    const auto temporary =
        foundation::TemporaryFolder::make(foundation::Folders::standard().temporary);
    if (!temporary)
        return tl::unexpected(temporary.error());
    for (const catalogue::Tab& tab : catalogue::tabs()) {
        for (const catalogue::Button& button : tab.buttons()) {
            const auto loop = loops::makeLoop(**renderer, temporary->path(), tab, button);
            if (auto saved = save(loop, folder / catalogue::loopName(button.title)); !saved)
                return saved;
        }
    }
    return {};
}

} // namespace

int main(int argc, char** argv) {
    foundation::prepareProcess();
    if (argc != 3) {
        fmt::print(stderr, "usage: zelvo_loops FOLDER KEY\n");
        return 2;
    }
    const fs::path folder = argv[1];
    const fs::path stamp = folder / "loops" / "key";
    if (keyIn(stamp) == argv[2])
        return 0;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    std::error_code ignored;
    fs::create_directories(folder / "loops", ignored);
    auto drawn = drawAll(folder);
    if (drawn)
        drawn = save(QByteArray(argv[2]) + '\n', stamp);
    if (drawn)
        return 0;
    fmt::print(stderr, "zelvo_loops: {}\n", drawn.error().message);
    // The program works without the loops if nothing can be drawn.
    return drawn.error().cause == foundation::Cause::unavailable ? 0 : 1;
}
