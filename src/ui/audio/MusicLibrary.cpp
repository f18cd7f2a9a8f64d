// SPDX-License-Identifier: MIT
#include "ui/audio/MusicLibrary.h"

#include "platform/foundation/Console.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace zelvo::ui {

using foundation::Cause;
using music::IndexProgress;
using music::MusicIndex;

namespace {

std::shared_ptr<const music::AlbumList> listOf(const MusicPlaces& places) {
    auto index = MusicIndex::open(places.database, places.folder);
    if (!index)
        return std::make_shared<music::AlbumList>();
    return std::make_shared<music::AlbumList>(music::AlbumList::arrange(index->albums()));
}

/// Once more if the index was damaged: it is thrown away when it is opened.
foundation::Result<music::IndexUpdate> updateOf(
    const MusicPlaces& places,
    const std::function<void(const IndexProgress&)>& progress,
    const music::IsStopped& isStopped) {
    const auto attempt = [&] {
        return MusicIndex::open(places.database, places.folder).and_then([&](MusicIndex index) {
            return index.update(progress, isStopped);
        });
    };
    auto update = attempt();
    return update || update.error().cause != Cause::malformed ? update : attempt();
}

/// Calls back on the run loop, from any thread.
template <class Call> auto onLoop(foundation::RunLoop& loop, Call call) {
    return [&loop, call](const auto& result) { loop.post([call, result] { call(result); }); };
}

} // namespace

MusicLibrary::MusicLibrary(foundation::RunLoop& runLoop, MusicPlaces given)
    : loop(runLoop)
    , places_(std::move(given))
    , updating(runLoop.makeSerialQueue("music index"))
    , listing(runLoop.makeSerialQueue("music list")) {
    connect(&watcher, &QFileSystemWatcher::directoryChanged, this, [this] {
        nextUpdate = loop.scheduleOnce(kSettling, [this] { refresh(); });
    });
    readList();
    refresh();
}

MusicLibrary::~MusicLibrary() {
    *isOver = true;
}

void MusicLibrary::refresh() {
    isUpdateAsked = isUpdating;
    if (std::exchange(isUpdating, true))
        return;
    updating->async(
        [places = places_,
         isStopped = music::IsStopped([over = isOver] { return over->load(); }),
         tell = onLoop(loop, lifetime.guard([this](const IndexProgress& now) { follow(now); })),
         done = onLoop(loop, lifetime.guard([this](const Update& update) { finish(update); }))] {
            done(updateOf(places, tell, isStopped));
        });
}

void MusicLibrary::follow(const IndexProgress& now) {
    progress_ = now;
    Q_EMIT progressChanged();
    readList();
}

void MusicLibrary::finish(const Update& update) {
    constexpr double kBusyPause = 2;
    isUpdating = false;
    progress_.reset();
    if (!update)
        foundation::logLine("music: " + update.error().message);
    if (update && update->isBusy)
        nextUpdate = loop.scheduleOnce(kBusyPause, [this] { refresh(); });
    if (update && !update->isBusy) {
        watch(update->folders);
        unreadable_ = update->unreadable;
    }
    readList();
    if (std::exchange(isUpdateAsked, false))
        refresh();
    Q_EMIT progressChanged();
}

void MusicLibrary::watch(const std::vector<std::filesystem::path>& folders) {
    QStringList wanted;
    for (const auto& folder : folders) {
        if (wanted.size() < kMaxWatched)
            wanted.append(QString::fromStdString(folder.string()));
    }
    const QStringList watched =
        watcher.directories(); // those that are gone have left by themselves
    QStringList missing;
    std::ranges::copy_if(wanted, std::back_inserter(missing), [&watched](const QString& folder) {
        return !watched.contains(folder);
    });
    if (!missing.isEmpty())
        watcher.addPaths(missing);
}

void MusicLibrary::readList() {
    isListAsked = isListing || nextList.isValid();
    if (isListAsked)
        return;
    isListing = true;
    listing->async([places = places_,
                    &runLoop = loop,
                    done = lifetime.guard([this](std::shared_ptr<const music::AlbumList> list) {
                        take(std::move(list));
                    })] { runLoop.post([done, list = listOf(places)] { done(list); }); });
}

void MusicLibrary::take(std::shared_ptr<const music::AlbumList> list) {
    isListing = false;
    nextList = loop.scheduleOnce(kListPause, [this] {
        nextList = {};
        if (isListAsked)
            readList();
    });
    const bool isFirst = !std::exchange(isListed, true);
    const bool isSame = list->albums == albums_->albums;
    if (!isSame)
        albums_ = std::move(list);
    if (!isSame)
        Q_EMIT albumsChanged();
    if (isFirst)
        Q_EMIT progressChanged();
}

MusicIndex* MusicLibrary::reader() {
    if (!index) {
        if (auto opened = MusicIndex::open(places_.database, places_.folder))
            index = std::move(*opened);
    }
    return index ? &*index : nullptr;
}

std::vector<music::MusicItem> MusicLibrary::songs(const std::string& albumKey) {
    MusicIndex* const open = reader();
    return open == nullptr ? std::vector<music::MusicItem>() : open->songs(albumKey);
}

std::size_t MusicLibrary::songCount() {
    MusicIndex* const open = reader();
    return open == nullptr ? 0 : open->songCount();
}

} // namespace zelvo::ui
