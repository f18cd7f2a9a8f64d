// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"
#include "platform/music/MusicIndex.h"
#include "ui/controls/Services.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqml.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace zelvo::ui {

/// A row of the list of songs.
struct SongRowData {
    Q_GADGET
    QML_VALUE_TYPE(songRowData)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString artist MEMBER artist)
    Q_PROPERTY(QString cover MEMBER cover)
    Q_PROPERTY(QString icon MEMBER icon)
    Q_PROPERTY(QString state MEMBER state)
    Q_PROPERTY(QString duration MEMBER duration)

public:
    QString title;
    QString artist;
    QString cover;    ///< for a CoverItem
    QString icon;     ///< why it cannot be used; empty: it can
    QString state;    ///< the same in words
    QString duration; ///< "3:05"; empty: unknown

    friend bool operator==(const SongRowData&, const SongRowData&) = default;
};

/// Makes the list type known to QML's tools.
struct SongRowDataList {
    Q_GADGET
    QML_ANONYMOUS
    QML_FOREIGN(QList<zelvo::ui::SongRowData>)
    QML_SEQUENTIAL_CONTAINER(zelvo::ui::SongRowData)
};

/// An album on the screen of its songs.
struct SelectedAlbum {
    std::string key;
    std::string title;
};

/// The songs of an album. Those that cannot be used are listed, too, with a mark, and a tap on one says
/// why.
class SongsTableViewController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QList<zelvo::ui::SongRowData> rows READ rows NOTIFY changed)
    Q_PROPERTY(double cellHeight MEMBER cellHeight CONSTANT)

public:
    static constexpr double kSettling = 1; ///< seconds from the return to the window to the reload

    using Songs = std::vector<music::MusicItem>;

    SongsTableViewController(
        const Services& given, SelectedAlbum album, std::function<Songs()> songsOfAlbum);

    double cellHeight = 48; ///< device-independent pixels
    /// Takes the song that was picked, and its title; set by the owner.
    std::function<void(const std::filesystem::path&, const std::string&)> didPick;
    /// Opens a folder in the file manager.
    std::function<void(const QUrl&)> openFolder;

    [[nodiscard]] QString title() const;

    [[nodiscard]] const QList<SongRowData>& rows() const { return rows_; }

    Q_INVOKABLE void pickRow(int row);
    Q_INVOKABLE void backAction();
    /// The user comes back from another program, perhaps after fetching a song there: reads the songs
    /// again, a little later. The view keeps its selection.
    void appDidBecomeActive();

Q_SIGNALS:
    /// Before `changed`, so that the view can keep its selection.
    void changing();
    void changed();
    void popped();

private:
    void reload();

    Services services;
    SelectedAlbum selectedAlbum;
    std::function<Songs()> readSongs;
    Songs songs;
    QList<SongRowData> rows_;
    foundation::Timer reloading;
};

/// The title of a song in the editor: "Artist - Title".
[[nodiscard]] std::string titleOfPicked(const music::MusicItem& song);

} // namespace zelvo::ui
