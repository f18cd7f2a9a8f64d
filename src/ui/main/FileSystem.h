// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Services.h"

#include <QCoreApplication>

#include <filesystem>

class QMimeData;
class QUrl;

namespace zelvo::ui {

class PictureImporter;

/// What something from outside is good for.
enum class Offer {
    none,    ///< there is nothing
    picture, ///< for the image node
    fonts,   ///< font files or archives
    link,    ///< to another machine; nothing is fetched from there
    unknown
};

/// Opens what comes from outside: from the command line, a file dialog, a drop or the clipboard. It
/// decides by the type: that of fonts and archives is told by the name, that of pictures by the
/// name or else the content.
class FileSystem {
    Q_DECLARE_TR_FUNCTIONS(zelvo::ui::FileSystem)

public:
    FileSystem(const Services& given, PictureImporter& pictureImporter)
        : services(given)
        , pictures(pictureImporter) {}

    /// Whether there was something to do with it; otherwise an alert says why not.
    [[nodiscard]] bool open(const std::filesystem::path& file);
    [[nodiscard]] bool open(const QUrl& url);

    /// Opens local files, the data of a picture, or the file of a path that is given as text.
    /// Returns whether there was any of these.
    [[nodiscard]] bool open(const QMimeData& data);

    /// Before something is opened: what it is good for. The best of it counts.
    [[nodiscard]] static Offer offerOf(const QMimeData& data);

private:
    Services services;
    PictureImporter& pictures;
};

} // namespace zelvo::ui
