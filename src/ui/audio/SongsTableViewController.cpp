// SPDX-License-Identifier: MIT
#include "ui/audio/SongsTableViewController.h"

#include "ui/audio/CoverPictures.h"
#include "ui/controls/Alerts.h"

#include <QDesktopServices>

#include <cmath>
#include <utility>

namespace zelvo::ui {

namespace {

QString durationText(double seconds) {
    constexpr int kMinute = 60;
    const int whole = static_cast<int>(std::lround(seconds));
    if (whole <= 0)
        return {};
    return QStringLiteral("%1:%2").arg(whole / kMinute).arg(whole % kMinute, 2, 10, QChar('0'));
}

} // namespace

std::string titleOfPicked(const music::MusicItem& song) {
    return song.albumArtist + (song.title.empty() ? "" : " - " + song.title);
}

SongsTableViewController::SongsTableViewController(
    const Services& given, SelectedAlbum album, std::function<Songs()> songsOfAlbum)
    : openFolder([](const QUrl& folder) { QDesktopServices::openUrl(folder); })
    , services(given)
    , selectedAlbum(std::move(album))
    , readSongs(std::move(songsOfAlbum)) {
    reload();
}

QString SongsTableViewController::title() const {
    return QString::fromStdString(selectedAlbum.title);
}

void SongsTableViewController::reload() {
    Songs now = readSongs();
    if (now == songs)
        return;
    Q_EMIT changing();
    songs = std::move(now);
    rows_.clear();
    for (const music::MusicItem& song : songs) {
        SongRowData row{
            .title = QString::fromStdString(song.title),
            .artist = QString::fromStdString(song.albumArtist),
            .cover = song.hasArtwork ? coverOfSong(song.assetURL) : coverOfAlbum(selectedAlbum.key),
            .icon = {},
            .state = {},
            .duration = durationText(song.duration)};
        if (song.hasProtectedAsset) {
            row.icon = QStringLiteral("MediaBin-UnavailableAudio");
            row.state = tr("protected");
        } else if (song.isCloudItem) {
            row.icon = QStringLiteral("MediaBin-DownloadAudio");
            row.state = tr("not downloaded");
        }
        rows_.append(row);
    }
    Q_EMIT changed();
}

void SongsTableViewController::appDidBecomeActive() {
    reloading = services.runLoop.scheduleOnce(kSettling, [this] { reload(); });
}

void SongsTableViewController::backAction() {
    Q_EMIT popped();
}

void SongsTableViewController::pickRow(int row) {
    if (row < 0 || row >= rows_.size())
        return;
    const music::MusicItem& song = songs[static_cast<std::size_t>(row)];
    const std::string unavailable = tr("Song Unavailable").toStdString();
    if (song.hasProtectedAsset) {
        services.alerts.showAlert(
            unavailable, tr("This song is DRM protected and can't be used.").toStdString());
    } else if (song.isCloudItem) {
        const QUrl folder =
            QUrl::fromLocalFile(QString::fromStdString(song.assetURL.parent_path().string()));
        services.alerts.show(
            {.title = unavailable,
             .message = tr("Open its folder and choose Make Available Offline for this song.")
                            .toStdString(),
             .actions = {
                 {.title = tr("Cancel").toStdString(), .role = AlertRole::cancel},
                 {.title = tr("Music").toStdString(),
                  .handler = [open = openFolder, folder] { open(folder); }}}});
    } else if (didPick) {
        didPick(song.assetURL, titleOfPicked(song));
    }
}

} // namespace zelvo::ui
