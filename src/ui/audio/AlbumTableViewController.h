// SPDX-License-Identifier: MIT
#pragma once

#include "audio/AudioPlayer.h"
#include "platform/foundation/Lifetime.h"
#include "platform/foundation/Result.h"
#include "platform/foundation/RunLoop.h"
#include "ui/audio/AlbumRows.h"
#include "ui/audio/CoverPictures.h"
#include "ui/audio/MusicLibrary.h"
#include "ui/audio/SongsTableViewController.h"
#include "ui/controls/Services.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace zelvo::ui {

class AudioViewController;

/// What a list of music shows.
enum class ContentType { tunes = 0, albums = 1 };

/// The list of albums in the user's music folder, or of the music that comes with the program; and the
/// songs of one album. A song that is picked goes to the audio editor, and the screen closes. Its view
/// is "MusicLibrary". It is made each time it is opened, and shown until `dismissed`.
class AlbumTableViewController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(bool hasHelp READ hasHelp CONSTANT)
    Q_PROPERTY(double cellHeight MEMBER cellHeight CONSTANT)
    Q_PROPERTY(zelvo::ui::AlbumRows* rows READ rowsObject CONSTANT)
    Q_PROPERTY(QStringList sectionIndexTitles READ sectionIndexTitles NOTIFY albumsChanged)
    Q_PROPERTY(zelvo::ui::CoverPictures* covers READ coversObject CONSTANT)
    Q_PROPERTY(QString progress READ progress NOTIFY progressChanged)
    Q_PROPERTY(bool isIndexing READ isIndexing NOTIFY progressChanged)
    Q_PROPERTY(bool isComplete READ isComplete NOTIFY progressChanged)
    Q_PROPERTY(QString emptyTitle READ emptyTitle NOTIFY progressChanged)
    Q_PROPERTY(QString emptyText READ emptyText NOTIFY progressChanged)
    Q_PROPERTY(zelvo::ui::SongsTableViewController* songs READ songsObject NOTIFY songsChanged)

public:
    /// The editor may be gone before the screen; then a pick only closes it.
    AlbumTableViewController(
        const Services& given,
        AudioViewController* editor,
        ContentType content = ContentType::albums);
    ~AlbumTableViewController() override;

    double cellHeight = 48; ///< device-independent pixels
    /// Of the songs that are shown; null: none are.
    std::unique_ptr<SongsTableViewController> songsTableViewController;
    /// Opens a folder in the file manager.
    std::function<void(const QUrl&)> openFolder;

    [[nodiscard]] QString title() const;

    [[nodiscard]] bool hasHelp() const { return contentType == ContentType::albums; }

    [[nodiscard]] QStringList sectionIndexTitles() const;
    /// "1,240 songs", while the index is made.
    [[nodiscard]] QString progress() const;
    [[nodiscard]] bool isIndexing() const;
    /// Whether an empty list means that there is nothing.
    [[nodiscard]] bool isComplete() const;
    [[nodiscard]] bool isFolderClosed() const;
    /// What to say in place of an empty list.
    [[nodiscard]] QString emptyTitle() const;
    [[nodiscard]] QString emptyText() const;

    Q_INVOKABLE [[nodiscard]] int rowOfSection(int section) const;
    Q_INVOKABLE [[nodiscard]] int sectionOfRow(int row) const;
    /// The first album that begins with what was typed; -1: there is none.
    Q_INVOKABLE [[nodiscard]] int rowOfTyped(const QString& start) const;

    Q_INVOKABLE void showHelp();
    Q_INVOKABLE void pickRow(int row);
    Q_INVOKABLE void popSongs();
    Q_INVOKABLE void openMusicFolder();
    /// Closes the screen; a file is chosen instead.
    Q_INVOKABLE void chooseDocument();
    Q_INVOKABLE void dismissViewController();
    /// The user comes back to the window, perhaps from changing the music.
    void appDidBecomeActive();

    [[nodiscard]] AlbumRows* rowsObject() { return &rows; }

    [[nodiscard]] CoverPictures* coversObject() { return &covers; }

    [[nodiscard]] SongsTableViewController* songsObject() const {
        return songsTableViewController.get();
    }

Q_SIGNALS:
    void albumsChanged();
    void progressChanged();
    void songsChanged();
    void dismissed();
    /// The user wants to choose a file instead. `dismissed` comes first.
    void documentsAsked();

private:
    void showAlbums();
    /// Makes sure on another thread that the song can be decoded; a long one takes a while.
    void assign(const std::filesystem::path& url, const std::string& title);
    void finish(
        const std::filesystem::path& url,
        const std::string& title,
        const foundation::Result<void>& checked);

    Services services;
    QPointer<AudioViewController> audioViewController;
    audio::AudioPlayer& audioPlayer;
    ContentType contentType;
    std::unique_ptr<MusicLibrary> library; ///< null in the list of tunes
    AlbumRows rows;
    CoverPictures covers;
    int picks = 0; ///< the last one counts
    std::unique_ptr<foundation::SerialQueue> checking;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
