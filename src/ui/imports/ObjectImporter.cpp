// SPDX-License-Identifier: MIT
#include "ui/imports/ObjectImporter.h"

#include "platform/foundation/Console.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/Folders.h"
#include "platform/object/reading/ObjectReader.h"
#include "platform/object/reading/Words.h"
#include "ui/controls/Alerts.h"
#include "ui/imports/FolderFiles.h"
#include "ui/imports/FontImporter.h"
#include "ui/imports/ObjectCompanions.h"
#include "ui/imports/Unpacked.h"

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
using foundation::copyFile;
using foundation::fail;
using foundation::Result;

constexpr auto kPartExtensions = std::to_array<std::string_view>({".mtl", ".bin"});
constexpr const char* kFolder = "ImportedObjects";

[[nodiscard]] bool isObject(const fs::path& file) {
    return objectFileKind(file) == ObjectFile::object;
}

/// Moves a file, or copies it to another disk.
Result<void> moveInto(const fs::path& source, const fs::path& target) {
    std::error_code error;
    fs::rename(source, target, error);
    return error ? copyFile(source, target) : Result<void>();
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
    const auto formats = object::objectExtensions();
    if (std::ranges::find(formats, extension) != formats.end())
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
    return foundation::visibleFilesIn(folder());
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
    return copyFile(file, target).map([&target] { return std::move(target); });
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
    const auto unpacked = unpack(file, services.folders.temporary);
    if (!unpacked) {
        services.alerts.showAlert(unpacked.error().message, {});
        return {};
    }
    std::string failure = unpacked->failure;
    if (!failure.empty())
        foundation::logLine("handleZip Extraction of ZIP failed with error: " + failure);
    if (std::ranges::none_of(unpacked->files, &isObject)) {
        refuse(tr("No 3D files found in ZIP"), failure);
        return {};
    }
    Paths objects;
    for (const fs::path& one : unpacked->files) {
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
