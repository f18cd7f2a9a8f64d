// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"
#include "platform/music/AlbumList.h"

#include <QFileSystemWatcher>
#include <QObject>

#include <atomic>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zelvo::ui {

/// Where the music is, and where its index is kept.
struct MusicPlaces {
    std::filesystem::path folder;
    std::filesystem::path database;
};

/// The user's music, for as long as a list of it is shown. The index is brought up to date on a thread
/// of its own, and the list is read on another one; so neither the window nor the list waits.
///
/// The folders are watched. A program that writes into a file without making it anew is not noticed; so
/// ask for a `refresh` when the user comes back to the window.
class MusicLibrary final : public QObject {
    Q_OBJECT

public:
    static constexpr int kMaxWatched = 2000;  ///< folders; each takes memory of the system
    static constexpr double kSettling = 1;    ///< seconds from a change in a folder to the update
    static constexpr double kListPause = 0.5; ///< seconds between two readings of the list

    MusicLibrary(foundation::RunLoop& runLoop, MusicPlaces given);
    /// Gives up the update; what it has read stays in the index.
    ~MusicLibrary() override;
    MusicLibrary(const MusicLibrary&) = delete;
    MusicLibrary& operator=(const MusicLibrary&) = delete;

    /// Brings the index up to date; does nothing while that is done already.
    void refresh();

    /// Empty until it is first read.
    [[nodiscard]] const std::shared_ptr<const music::AlbumList>& albums() const { return albums_; }

    /// Whether the list has been read once, and the index is up to date.
    [[nodiscard]] bool isComplete() const { return isListed && !isUpdating; }

    /// While files are read.
    [[nodiscard]] const std::optional<music::IndexProgress>& progress() const { return progress_; }

    /// Folders that could not be read at the last update.
    [[nodiscard]] const std::vector<std::filesystem::path>& unreadable() const {
        return unreadable_;
    }

    [[nodiscard]] std::vector<music::MusicItem> songs(const std::string& albumKey);
    [[nodiscard]] std::size_t songCount();

    [[nodiscard]] const MusicPlaces& places() const { return places_; }

Q_SIGNALS:
    void albumsChanged();
    void progressChanged();

private:
    using Update = foundation::Result<music::IndexUpdate>;

    void readList();
    void take(std::shared_ptr<const music::AlbumList> list);
    void follow(const music::IndexProgress& now);
    void finish(const Update& update);
    void watch(const std::vector<std::filesystem::path>& folders);
    [[nodiscard]] music::MusicIndex* reader();

    foundation::RunLoop& loop;
    MusicPlaces places_;
    std::shared_ptr<std::atomic<bool>> isOver = std::make_shared<std::atomic<bool>>(false);
    std::shared_ptr<const music::AlbumList> albums_ = std::make_shared<music::AlbumList>();
    std::optional<music::IndexProgress> progress_;
    std::vector<std::filesystem::path> unreadable_;
    std::optional<music::MusicIndex> index; ///< for this thread's questions
    bool isListed = false;
    bool isListing = false;
    bool isListAsked = false;
    bool isUpdating = false;
    bool isUpdateAsked = false;
    QFileSystemWatcher watcher;
    foundation::Timer nextList;
    foundation::Timer nextUpdate;
    std::unique_ptr<foundation::SerialQueue> updating;
    std::unique_ptr<foundation::SerialQueue> listing;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
