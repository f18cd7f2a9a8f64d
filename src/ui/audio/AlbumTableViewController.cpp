// SPDX-License-Identifier: MIT
#include "ui/audio/AlbumTableViewController.h"

#include "model/Model.h"
#include "platform/foundation/Folders.h"
#include "platform/media/AVAsset.h"
#include "ui/audio/AudioViewController.h"
#include "ui/controls/Alerts.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <QLocale>
#include <QUrl>

#include <utility>

namespace zelvo::ui {

namespace {

MusicPlaces placesOf(const Services& services) {
    return {services.folders.music, services.folders.cache / "music.sqlite"};
}

/// The tracks in the order in which they are given, without sections of their own.
std::shared_ptr<const music::AlbumList> listOf(const std::vector<audio::Track>& tracks) {
    auto list = std::make_shared<music::AlbumList>();
    for (const audio::Track& track : tracks)
        list->albums.push_back({track.trackName, track.title, track.artist});
    list->sections.push_back({"", 0, tracks.size()});
    return list;
}

} // namespace

AlbumTableViewController::AlbumTableViewController(
    const Services& given, AudioViewController* editor, ContentType content)
    : openFolder([](const QUrl& folder) { QDesktopServices::openUrl(folder); })
    , services(given)
    , audioViewController(editor)
    , audioPlayer(given.model.audioPlayer())
    , contentType(content)
    , covers(given.runLoop, placesOf(given))
    , checking(given.runLoop.makeSerialQueue("picked song")) {
    if (contentType == ContentType::tunes) {
        rows.setList(listOf(audioPlayer.appTracks));
        return;
    }
    library = std::make_unique<MusicLibrary>(services.runLoop, placesOf(services));
    connect(
        library.get(), &MusicLibrary::albumsChanged, this, &AlbumTableViewController::showAlbums);
    connect(
        library.get(),
        &MusicLibrary::progressChanged,
        this,
        &AlbumTableViewController::progressChanged);
    if (auto* const application = qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        connect(
            application,
            &QGuiApplication::applicationStateChanged,
            this,
            [this](Qt::ApplicationState state) {
                if (state == Qt::ApplicationActive)
                    appDidBecomeActive();
            });
}

AlbumTableViewController::~AlbumTableViewController() = default;

QString AlbumTableViewController::title() const {
    return contentType == ContentType::albums ? tr("Albums") : tr("Tunes");
}

void AlbumTableViewController::showAlbums() {
    rows.setList(library->albums());
    Q_EMIT albumsChanged();
    Q_EMIT progressChanged();
}

QStringList AlbumTableViewController::sectionIndexTitles() const {
    QStringList titles;
    if (library) {
        for (const music::AlbumSection& section : library->albums()->sections)
            titles.append(QString::fromStdString(section.title));
    }
    return titles;
}

bool AlbumTableViewController::isIndexing() const {
    return library && !library->isComplete();
}

bool AlbumTableViewController::isComplete() const {
    return !library || library->isComplete();
}

QString AlbumTableViewController::progress() const {
    if (!library)
        return {};
    if (!library->progress()) {
        const auto closed = static_cast<int>(library->unreadable().size());
        return closed == 0 ? QString() : tr("Folders that cannot be read: %1").arg(closed);
    }
    const auto known = static_cast<int>(library->progress()->known);
    return tr("%1 songs").arg(QLocale().toString(known));
}

bool AlbumTableViewController::isFolderClosed() const {
    if (!library)
        return false;
    const auto& closed = library->unreadable();
    return std::ranges::find(closed, library->places().folder.lexically_normal()) != closed.end();
}

QString AlbumTableViewController::emptyTitle() const {
    if (!isComplete())
        return tr("Looking for music…");
    if (library && library->songCount() > 0)
        return tr("No song here can be used");
    return isFolderClosed() ? tr("The folder cannot be read") : tr("No music found");
}

QString AlbumTableViewController::emptyText() const {
    if (!library)
        return {};
    QString folder = QString::fromStdString(library->places().folder.string());
    if (!isComplete())
        return folder;
    if (library->songCount() > 0)
        return tr("All songs in %1 are protected or not downloaded.").arg(folder);
    if (isFolderClosed())
        return tr("Give yourself the right to read %1, or choose a file.").arg(folder);
    return tr("Put songs into %1, or choose a file.").arg(folder);
}

int AlbumTableViewController::rowOfSection(int section) const {
    if (!library || section < 0)
        return 0;
    const auto& sections = library->albums()->sections;
    const auto at = static_cast<std::size_t>(section);
    return at < sections.size() ? static_cast<int>(sections[at].location) : 0;
}

int AlbumTableViewController::sectionOfRow(int row) const {
    const bool isRow = library && row >= 0 && row < rows.rowCount();
    return isRow ? static_cast<int>(library->albums()->sectionOf(static_cast<std::size_t>(row)))
                 : -1;
}

int AlbumTableViewController::rowOfTyped(const QString& start) const {
    const auto found = library ? library->albums()->find(start.toStdString()) : std::nullopt;
    return found ? static_cast<int>(*found) : -1;
}

void AlbumTableViewController::showHelp() {
    const QStringList lines{
        tr("Titles that are "),
        tr("• downloaded to the device"),
        tr("• not from Apple Music"),
        tr("• not DRM-Protected")};
    services.alerts.showAlert(
        tr("Only importable titles are shown").toStdString(), lines.join('\n').toStdString());
}

void AlbumTableViewController::pickRow(int row) {
    if (row < 0 || row >= rows.rowCount())
        return;
    const auto at = static_cast<std::size_t>(row);
    if (!library) {
        const audio::Track& track = audioPlayer.appTracks.at(at);
        return assign(track.url(), track.artist + " - " + track.title);
    }
    const music::MusicAlbum album = library->albums()->albums[at];
    songsTableViewController = std::make_unique<SongsTableViewController>(
        services,
        SelectedAlbum{
            album.key,
            album.albumTitle.empty() ? tr("Unknown Album").toStdString() : album.albumTitle},
        [this, key = album.key] { return library->songs(key); });
    songsTableViewController->openFolder = openFolder;
    songsTableViewController->didPick =
        [this](const std::filesystem::path& url, const std::string& title) { assign(url, title); };
    connect(
        songsTableViewController.get(),
        &SongsTableViewController::popped,
        this,
        &AlbumTableViewController::popSongs);
    Q_EMIT songsChanged();
}

void AlbumTableViewController::popSongs() {
    if (!songsTableViewController)
        return;
    songsTableViewController.release()->deleteLater(); // its view is on the way out
    Q_EMIT songsChanged();
}

void AlbumTableViewController::assign(const std::filesystem::path& url, const std::string& title) {
    const auto done = lifetime.guard([this, url, title, number = ++picks](const auto& checked) {
        if (number == picks)
            finish(url, title, checked);
    });
    checking->async([&loop = services.runLoop, url, done] {
        loop.post([done, checked = media::checkSound(url)] { done(checked); });
    });
}

void AlbumTableViewController::finish(
    const std::filesystem::path& url,
    const std::string& title,
    const foundation::Result<void>& checked) {
    if (!checked) {
        services.alerts.showAlert(
            tr("The song cannot be played.").toStdString(), checked.error().message);
        return;
    }
    if (audioViewController != nullptr)
        audioViewController->assignSong(url, title);
    dismissViewController();
}

void AlbumTableViewController::openMusicFolder() {
    openFolder(QUrl::fromLocalFile(QString::fromStdString(services.folders.music.string())));
}

void AlbumTableViewController::chooseDocument() {
    dismissViewController();
    Q_EMIT documentsAsked();
}

void AlbumTableViewController::dismissViewController() {
    Q_EMIT dismissed();
}

void AlbumTableViewController::appDidBecomeActive() {
    if (library)
        library->refresh();
    if (songsTableViewController)
        songsTableViewController->appDidBecomeActive();
}

} // namespace zelvo::ui
