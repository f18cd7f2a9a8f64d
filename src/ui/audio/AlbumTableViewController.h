// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Services.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

class AudioViewController;

/// What a list of music shows.
enum class ContentType { tunes = 0, albums = 1 };

/// The list of albums in the user's music folder, and of the songs of one. A song that is picked goes
/// to the audio editor, and the screen closes. Its view is "MusicLibrary". It is made each time it is
/// opened, and shown until `dismissed`.
class AlbumTableViewController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString title READ title CONSTANT)

public:
    /// The editor may be gone before the screen; then a pick only closes it.
    AlbumTableViewController(
        const Services& given,
        AudioViewController* editor,
        ContentType content = ContentType::albums);

    [[nodiscard]] QString title() const;

    Q_INVOKABLE void dismissViewController();

Q_SIGNALS:
    void dismissed();
    /// The user wants to choose a file instead. `dismissed` comes first.
    void documentsAsked();

private:
    Services services;
    QPointer<AudioViewController> audioViewController;
    ContentType contentType;
};

} // namespace zelvo::ui
