// SPDX-License-Identifier: MIT
#include "ui/main/FileSystem.h"

#include "platform/archive/Archive.h"
#include "platform/object/reading/Words.h"
#include "ui/audio/AudioImporter.h"
#include "ui/controls/Alerts.h"
#include "ui/imports/FontImporter.h"
#include "ui/imports/ObjectImporter.h"
#include "ui/imports/PictureImporter.h"

#include <QMimeData>
#include <QMimeDatabase>
#include <QUrl>

#include <algorithm>
#include <array>
#include <system_error>

namespace zelvo::ui {

namespace {

/// Data that programs offer for one and the same picture, the best first.
constexpr std::array kPictureTypes{
    "image/svg+xml",
    "image/png",
    "image/webp",
    "image/tiff",
    "image/jpeg",
    "image/gif",
    "image/bmp"};

Offer kindOf(const std::filesystem::path& file) {
    std::error_code error;
    const std::string suffix = object::lowered(file.extension().string());
    if (suffix == ".zelvo" || suffix == ".json")
        return Offer::document;
    if (FontImporter::isFont(file))
        return Offer::fonts;
    if (FontImporter::isArchive(file))
        return Offer::archive;
    const bool isLibrary = object::lowered(file.extension().string()) == ".mtl";
    if (isLibrary || objectFileKind(file) == ObjectFile::object ||
        std::filesystem::is_directory(file, error))
        return Offer::object;
    const QMimeType type = QMimeDatabase().mimeTypeForFile(QString::fromStdString(file.string()));
    if (type.name().startsWith("audio/"))
        return Offer::sound;
    const bool isShown = type.name().startsWith("image/") || type.name().startsWith("video/");
    return isShown ? Offer::picture : Offer::unknown;
}

/// The files that the data names: in its list of addresses, or as text with one path.
QStringList filesIn(const QMimeData& data) {
    QStringList files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    if (!files.isEmpty() || data.hasUrls())
        return files;
    constexpr qsizetype kLongestPath = 4096; // Linux, limits.h
    const QString text = data.text().trimmed();
    if (text.size() > kLongestPath)
        return {};
    const QUrl url(text);
    const QString path = url.isLocalFile() ? url.toLocalFile() : text;
    std::error_code error;
    const bool isFile = path.startsWith('/') && !path.contains('\n') &&
                        std::filesystem::exists(path.toStdString(), error);
    return isFile ? QStringList(path) : QStringList();
}

QByteArray pictureIn(const QMimeData& data) {
    for (const char* const type : kPictureTypes) {
        const QString name = QString::fromLatin1(type);
        if (!data.hasFormat(name))
            continue;
        if (QByteArray bytes = data.data(name); !bytes.isEmpty())
            return bytes;
    }
    return {};
}

bool hasPicture(const QMimeData& data) {
    return std::ranges::any_of(kPictureTypes, [&data](const char* type) {
        return data.hasFormat(QString::fromLatin1(type));
    });
}

} // namespace

bool FileSystem::open(const std::vector<std::filesystem::path>& files) {
    const bool hasObject = std::ranges::any_of(
        files, [](const std::filesystem::path& file) { return kindOf(file) == Offer::object; });
    std::vector<std::filesystem::path> together;
    bool isAll = true;
    for (const std::filesystem::path& file : files) {
        const bool isPart = kindOf(file) == Offer::object ||
                            (hasObject && objectFileKind(file) == ObjectFile::part);
        std::error_code error;
        if (isPart && std::filesystem::exists(file, error))
            together.push_back(file);
        else
            isAll = openAlone(file) && isAll;
    }
    return (together.empty() || importObjects(together)) && isAll;
}

bool FileSystem::importObjects(const std::vector<std::filesystem::path>& files) {
    const auto imported = objects.importFiles(files);
    if (!imported.empty() && showObject)
        showObject(imported.front());
    return !imported.empty();
}

/// It may have objects and fonts, both, or none.
bool FileSystem::openArchive(const std::filesystem::path& file) {
    const auto opened = archive::Archive::open(file);
    const auto has = [&opened](auto isWanted) {
        return opened && std::ranges::any_of(
                             opened->files(), [&isWanted](const archive::ArchivedFile& entry) {
                                 return isWanted(entry.path);
                             });
    };
    const bool hasObjects = has([](const std::filesystem::path& entry) {
        return objectFileKind(entry) == ObjectFile::object;
    });
    const bool isImported = hasObjects && importObjects({file});
    if (hasObjects && !has(&FontImporter::isFont))
        return isImported;
    return FontImporter(services).importFile(file) || isImported;
}

bool FileSystem::openAlone(const std::filesystem::path& file) {
    const auto refuse = [&](const QString& title) {
        services.alerts.showAlert(title.toStdString(), file.filename().string());
        return false;
    };
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status))
        return refuse(tr("There is no such file."));
    if (!std::filesystem::is_regular_file(status))
        return refuse(tr("This is not a file."));
    const Offer kind = kindOf(file);
    if (kind == Offer::document) {
        if (openDocument)
            openDocument(file);
        return true;
    }
    if (kind == Offer::archive)
        return openArchive(file);
    if (kind == Offer::sound) {
        songs.load(file);
        return true;
    }
    if (kind != Offer::picture)
        return FontImporter(services).importFile(file);
    pictures.load(file);
    return true;
}

bool FileSystem::open(const QUrl& url) {
    if (url.isLocalFile() || url.scheme().isEmpty())
        return open(std::vector{std::filesystem::path(url.toLocalFile().toStdString())});
    services.alerts.showAlert(
        tr("Links cannot be opened.").toStdString(),
        tr("Save the picture as a file. Then drop the file here.").toStdString());
    return false;
}

bool FileSystem::open(const QMimeData& data) {
    const QStringList files = filesIn(data);
    if (!files.isEmpty()) {
        std::vector<std::filesystem::path> paths;
        for (const QString& file : files)
            paths.emplace_back(file.toStdString());
        (void)open(paths);
        return true;
    }
    if (const QByteArray picture = pictureIn(data); !picture.isEmpty()) {
        pictures.load(picture);
        return true;
    }
    if (data.urls().isEmpty())
        return false;
    (void)open(data.urls().front());
    return true;
}

Offer FileSystem::offerOf(const QMimeData& data) {
    const QStringList files = filesIn(data);
    if (files.isEmpty() && hasPicture(data))
        return Offer::picture;
    if (files.isEmpty())
        return data.hasUrls() ? Offer::link : Offer::unknown;
    Offer best = Offer::unknown;
    for (const QString& file : files)
        best = std::min(best, kindOf(file.toStdString()));
    return best;
}

} // namespace zelvo::ui
