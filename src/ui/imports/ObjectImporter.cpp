// SPDX-License-Identifier: MIT
#include "ui/imports/ObjectImporter.h"

#include "platform/archive/Archive.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/NewFile.h"
#include "platform/foundation/TemporaryFolder.h"
#include "platform/object/reading/Words.h"
#include "ui/controls/Alerts.h"
#include "ui/imports/FolderFiles.h"
#include "ui/imports/FontImporter.h"
#include "ui/imports/ObjectCompanions.h"

#include <fmt/format.h>

#include <QMimeDatabase>

#include <algorithm>
#include <array>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <span>
#include <string_view>
#include <system_error>

namespace zelvo::ui {

namespace fs = std::filesystem;

namespace {

using foundation::Cause;
using foundation::fail;
using foundation::NewFile;
using foundation::Result;
using foundation::TemporaryFolder;

constexpr auto kObjectExtensions = std::to_array<std::string_view>(
    {".usdz", ".usd", ".usda", ".usdc", ".obj", ".glb", ".gltf", ".stl"});
constexpr auto kPartExtensions = std::to_array<std::string_view>({".mtl", ".bin"});
constexpr const char* kFolder = "ImportedObjects";

[[nodiscard]] bool isObject(const fs::path& file) {
    return objectFileKind(file) == ObjectFile::object;
}

/// Copies a file, whole or not at all.
Result<void> copyInto(const fs::path& source, const fs::path& target) {
    std::error_code ignored;
    if (fs::equivalent(source, target, ignored))
        return {};
    const std::string name = source.filename().string();
    std::ifstream stream(source, std::ios::binary);
    if (!fs::is_regular_file(source, ignored) || !stream)
        return fail(Cause::unreadable, name + ": it cannot be opened for reading");
    (void)NewFile::check(target); // removes leftovers; errors show in the next line
    auto file = NewFile::create(target);
    if (!file)
        return tl::unexpected(file.error());
    constexpr std::size_t kBlock = 1U << 20U;
    std::vector<char> block(kBlock);
    while (stream.read(block.data(), static_cast<std::streamsize>(block.size())),
           stream.gcount() > 0) {
        const auto bytes = std::span(block).first(static_cast<std::size_t>(stream.gcount()));
        if (auto written = file->write(std::as_bytes(bytes)); !written)
            return written;
    }
    if (stream.bad())
        return fail(Cause::unreadable, name + ": it cannot be read to its end");
    return file->commit();
}

/// Moves a file, or copies it to another disk.
Result<void> moveInto(const fs::path& source, const fs::path& target) {
    std::error_code error;
    fs::rename(source, target, error);
    return error ? copyInto(source, target) : Result<void>();
}

/// Whether a file of this name would be listed, and only in the folder itself.
[[nodiscard]] bool isPlainName(const std::string& name) {
    constexpr std::size_t kMaxName = 255; // Linux, limits.h
    const bool hasControl = std::ranges::any_of(
        name, [](char letter) { return static_cast<unsigned char>(letter) < ' '; });
    return !name.empty() && name.size() <= kMaxName && !name.starts_with('.') &&
           name.find('/') == std::string::npos && !hasControl;
}

} // namespace

ObjectFile objectFileKind(const fs::path& file) {
    const std::string extension = object::lowered(file.extension().string());
    if (std::ranges::find(kObjectExtensions, extension) != kObjectExtensions.end())
        return ObjectFile::object;
    if (FontImporter::isArchive(file))
        return ObjectFile::archive;
    const bool isPart = std::ranges::find(kPartExtensions, extension) != kPartExtensions.end();
    const QString name = QString::fromStdString(file.filename().string());
    const auto type = QMimeDatabase().mimeTypeForFile(name, QMimeDatabase::MatchExtension);
    return isPart || type.name().startsWith("image/") ? ObjectFile::part : ObjectFile::other;
}

ObjectImporter::ObjectImporter(const Services& given)
    : services(given) {}

fs::path ObjectImporter::folder() const {
    fs::path path = services.folders.documents / kFolder;
    std::error_code ignored; // errors show when a file is written
    fs::create_directories(path, ignored);
    return path;
}

std::vector<std::string> ObjectImporter::list() const {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder(), error), end; !error && entry != end;
         entry.increment(error)) {
        std::string name = entry->path().filename().string();
        std::error_code ignored;
        if (entry->is_regular_file(ignored) && !name.starts_with('.'))
            names.push_back(std::move(name));
    }
    if (error)
        foundation::logLine(fmt::format("{}: {}", kFolder, error.message()));
    return names;
}

std::vector<fs::path> ObjectImporter::importFiles(const Paths& given) {
    Paths objects;
    const auto import = [this](const fs::path& file) -> Paths {
        std::error_code error;
        if (fs::is_directory(file, error))
            return importFolder(file);
        switch (objectFileKind(file)) {
        case ObjectFile::archive:
            return importArchive(file);
        case ObjectFile::object:
        case ObjectFile::part:
            return importOne(file);
        default:
            refuse(tr("Unsupported file type."), file.filename().string());
            return {};
        }
    };
    for (const fs::path& file : given)
        std::ranges::copy(import(file), std::back_inserter(objects));
    return objects;
}

Result<fs::path> ObjectImporter::place(const fs::path& file) const {
    fs::path target = folder() / file.filename();
    return copyInto(file, target).map([&target] { return std::move(target); });
}

ObjectImporter::Paths ObjectImporter::importOne(const fs::path& file) {
    const auto target = place(file);
    objectsChanged.fire(target.has_value());
    if (!target) {
        services.alerts.showAlert(target.error().message, {});
        return {};
    }
    if (!isObject(file))
        return {};
    for (const fs::path& companion : companionsOf(file)) {
        const auto placed = place(companion);
        if (!placed)
            services.alerts.showAlert(placed.error().message, {});
        objectsChanged.fire(placed.has_value());
    }
    return {*target};
}

ObjectImporter::Paths ObjectImporter::importArchive(const fs::path& file) {
    const std::string name = file.filename().string();
    const auto unpacked = TemporaryFolder::make(services.folders.temporary);
    if (!unpacked) {
        services.alerts.showAlert(unpacked.error().message, {});
        return {};
    }
    std::string failure;
    const auto done = archive::Archive::open(file).and_then(
        [&](const archive::Archive& opened) { return opened.unpackInto(unpacked->path()); });
    if (!done) {
        failure = done.error().in(name).message;
        foundation::logLine("handleZip Extraction of ZIP failed with error: " + failure);
    }
    const auto files = filesBelow(unpacked->path(), {}).value_or(Paths());
    if (std::ranges::none_of(files, &isObject)) {
        refuse(tr("No 3D files found in ZIP"), failure);
        return {};
    }
    Paths objects;
    for (const fs::path& one : files) {
        const fs::path target = folder() / one.filename();
        const auto moved = moveInto(one, target);
        if (moved && isObject(target))
            objects.push_back(target);
        if (moved)
            continue;
        foundation::logLine("handleZip error: " + moved.error().message);
        failure = moved.error().message;
    }
    if (!failure.empty())
        services.alerts.showAlert(tr("Not everything could be imported").toStdString(), failure);
    objectsChanged.fire(true);
    return objects;
}

ObjectImporter::Paths ObjectImporter::importFolder(const fs::path& given) {
    const auto all = filesBelow(given, {});
    if (!all) {
        refuse(tr("The folder cannot be imported"), all.error().message);
        return {};
    }
    Paths files;
    std::ranges::copy_if(*all, std::back_inserter(files), [](const fs::path& file) {
        const ObjectFile kind = objectFileKind(file);
        return kind == ObjectFile::object || kind == ObjectFile::part;
    });
    if (std::ranges::none_of(files, &isObject)) {
        refuse(tr("No 3D files found in the folder"), given.filename().string());
        return {};
    }
    Paths objects;
    std::string failure;
    for (const fs::path& file : files) {
        const auto placed = place(file);
        if (!placed)
            failure = placed.error().message;
        else if (isObject(file))
            objects.push_back(*placed);
    }
    if (!failure.empty())
        services.alerts.showAlert(tr("Not everything could be imported").toStdString(), failure);
    objectsChanged.fire(failure.empty());
    return objects;
}

void ObjectImporter::refuse(const QString& title, const std::string& message) {
    services.alerts.showAlert(title.toStdString(), message);
    objectsChanged.fire(false);
}

Result<void> ObjectImporter::rename(const std::string& name, const std::string& wanted) {
    auto renamed = [&]() -> Result<void> {
        if (!isPlainName(wanted))
            return fail(Cause::malformed, tr("This is no name for a file.").toStdString());
        const fs::path from = folder() / name;
        const fs::path to = folder() / wanted;
        std::error_code error;
        const bool isSame = fs::equivalent(from, to, error); // a disk may not tell case apart
        if (!isSame && fs::exists(fs::symlink_status(to, error)))
            return fail(
                Cause::unwritable, tr("There is a file of this name already.").toStdString());
        fs::rename(from, to, error);
        return error ? fail(Cause::unwritable, error.message()) : Result<void>();
    }();
    objectsChanged.fire(renamed.has_value());
    return renamed;
}

bool ObjectImporter::deleteObject(const std::string& name) {
    const auto names = list();
    const bool isThere = std::ranges::find(names, name) != names.end();
    std::error_code error;
    if (isThere)
        fs::remove(folder() / name, error);
    if (error)
        foundation::logLine("deleteCustomObject oops: " + error.message());
    objectsChanged.fire(isThere);
    return isThere;
}

} // namespace zelvo::ui
