// SPDX-License-Identifier: MIT
// zelvo_templates FOLDER KEY: makes the previews of the templates in FOLDER/templates. A preview that
// was already made of the same performance with this key stays.
#include "Preview.h"
#include "document/Templates.h"
#include "platform/foundation/NewFile.h"
#include "platform/foundation/Process.h"

#include <fmt/format.h>

#include <QCryptographicHash>
#include <QGuiApplication>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <system_error>

namespace {

namespace fs = std::filesystem;
using zelvo::foundation::Result;

[[nodiscard]] std::string contentOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

[[nodiscard]] std::string keyOf(const fs::path& performance, const std::string& key) {
    const auto hash = QCryptographicHash::hash(
        QByteArray::fromStdString(key + contentOf(performance)), QCryptographicHash::Sha256);
    return hash.toHex().toStdString();
}

/// Several build trees may share the folder, so a file appears whole.
[[nodiscard]] Result<void> save(const QByteArray& bytes, const fs::path& file) {
    auto made =
        zelvo::foundation::NewFile::create(file, zelvo::foundation::NewFile::Use::temporary);
    if (!made)
        return tl::unexpected(made.error());
    if (auto written = made->write(std::as_bytes(std::span(bytes.data(), bytes.size()))); !written)
        return written;
    return made->commit();
}

[[nodiscard]] Result<void>
make(std::string_view name, const fs::path& folder, const std::string& toolKey) {
    const auto performance = zelvo::document::templateFile(name);
    if (!performance)
        return tl::unexpected(performance.error());
    const fs::path preview = folder / zelvo::document::previewName(name);
    const fs::path stamp = fs::path(preview).replace_extension(".key");
    const auto key = keyOf(*performance, toolKey);
    std::error_code ignored;
    if (fs::exists(preview, ignored) && contentOf(stamp) == key)
        return {};
    fmt::print("{}\n", preview.string());
    const auto made = zelvo::previews::makePreview(*performance);
    if (!made)
        return tl::unexpected(made.error());
    if (auto saved = save(*made, preview); !saved)
        return saved;
    return save(QByteArray::fromStdString(key), stamp);
}

} // namespace

int main(int argc, char** argv) {
    zelvo::foundation::prepareProcess();
    if (argc != 3) {
        fmt::print(stderr, "usage: zelvo_templates FOLDER KEY\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const fs::path folder = argv[1];
    std::error_code ignored;
    fs::create_directories(folder / "templates", ignored);
    for (const std::string_view name : zelvo::document::kTemplates) {
        const auto made = make(name, folder, argv[2]);
        if (made)
            continue;
        fmt::print(stderr, "zelvo_templates: {}: {}\n", name, made.error().message);
        // The program works without the previews if nothing can be drawn.
        return made.error().cause == zelvo::foundation::Cause::unavailable ? 0 : 1;
    }
    return 0;
}
