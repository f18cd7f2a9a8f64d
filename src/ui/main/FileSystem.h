// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Services.h"

#include <QCoreApplication>

#include <filesystem>
#include <functional>
#include <vector>

class QMimeData;
class QUrl;

namespace zelvo::ui {

class AudioImporter;
class ObjectImporter;
class PictureImporter;

/// What something from outside is good for.
enum class Offer {
    none,     ///< there is nothing
    document, ///< a performance
    object,   ///< a 3D object, maybe with its parts, or a folder of them
    picture,  ///< or a video, for the image node
    sound,    ///< the music of the movie
    fonts,    ///< font files
    archive,  ///< of fonts or 3D objects
    link,     ///< to another machine; nothing is fetched from there
    unknown
};

/// Opens what comes from outside: from the command line, a file dialog, a drop or the clipboard. It
/// decides by the type: that of fonts, objects and archives is told by the name, that of pictures and
/// sounds by the name or else the content. Pictures that come together with an object are its textures.
class FileSystem {
    Q_DECLARE_TR_FUNCTIONS(zelvo::ui::FileSystem)

public:
    FileSystem(
        const Services& given,
        PictureImporter& pictureImporter,
        ObjectImporter& objectImporter,
        AudioImporter& audioImporter)
        : services(given)
        , pictures(pictureImporter)
        , objects(objectImporter)
        , songs(audioImporter) {}

    /// Called with the first object of those that were imported; set by the owner.
    std::function<void(const std::filesystem::path&)> showObject;

    /// Called with a document; set by the owner.
    std::function<void(const std::filesystem::path&)> openDocument;

    /// Whether there was something to do with each of them; otherwise an alert says why not.
    [[nodiscard]] bool open(const std::vector<std::filesystem::path>& files);
    [[nodiscard]] bool open(const QUrl& url);

    /// Opens local files, the data of a picture, or the file of a path that is given as text.
    /// Returns whether there was any of these.
    [[nodiscard]] bool open(const QMimeData& data);

    /// Before something is opened: what it is good for. The best of it counts.
    [[nodiscard]] static Offer offerOf(const QMimeData& data);

private:
    [[nodiscard]] bool openAlone(const std::filesystem::path& file);
    [[nodiscard]] bool openArchive(const std::filesystem::path& file);
    [[nodiscard]] bool importObjects(const std::vector<std::filesystem::path>& files);

    Services services;
    PictureImporter& pictures;
    ObjectImporter& objects;
    AudioImporter& songs;
};

} // namespace zelvo::ui
