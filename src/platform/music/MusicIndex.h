// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/music/Database.h"
#include "platform/music/MusicFolder.h"
#include "platform/music/TagReader.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace zelvo::music {

/// A song of the index.
struct MusicItem {
    std::filesystem::path assetURL; ///< the file
    std::string title;              ///< never empty: without a tag it is the name of the file
    std::string albumTitle;         ///< without a tag the name of the folder; empty: it has none
    std::string albumArtist;        ///< without a tag the artist; empty: unknown
    double duration = 0;            ///< seconds; 0: unknown
    bool hasProtectedAsset = false; ///< its sound is encrypted
    bool isCloudItem = false;       ///< not downloaded
    bool hasArtwork = false;

    friend bool operator==(const MusicItem&, const MusicItem&) = default;
};

/// An album with at least one song that can be used.
struct MusicAlbum {
    std::string key; ///< of the index
    std::string albumTitle;
    std::string albumArtist;

    friend bool operator==(const MusicAlbum&, const MusicAlbum&) = default;
};

struct IndexProgress {
    std::size_t known = 0; ///< songs in the index
    std::size_t left = 0;  ///< files still to be read
};

/// What an update has done.
struct IndexUpdate {
    std::size_t read = 0;    ///< new or changed files
    std::size_t removed = 0; ///< files that are gone
    bool isBusy = false;     ///< another process is doing it; nothing was done here
    std::vector<std::filesystem::path> folders{};    ///< of the music, to be watched
    std::vector<std::filesystem::path> unreadable{}; ///< folders that cannot be read
};

/// The songs of a music folder, in an SQLite file: what is needed to list them without opening them.
/// A data base that is damaged, or of another version or folder, is thrown away and made anew.
///
/// An object belongs to one thread; several, also of other processes, may have the same file open. A
/// reader sees what was there at its last commit, so nobody waits for an update.
class MusicIndex {
public:
    /// Errors: `unwritable`.
    [[nodiscard]] static foundation::Result<MusicIndex>
    open(const std::filesystem::path& database, const std::filesystem::path& musicFolder);

    /// Reads the files that are new or changed since the last update, and drops those that are gone.
    /// `progress` is called after each handful of files; they are in the index then. Errors:
    /// `cancelled`, `unavailable`, `unwritable`, `malformed`: the file has been damaged meanwhile; open
    /// it anew.
    [[nodiscard]] foundation::Result<IndexUpdate> update(
        const std::function<void(const IndexProgress&)>& progress = {},
        const IsStopped& isStopped = {});

    /// In no order.
    [[nodiscard]] std::vector<MusicAlbum> albums();
    /// All songs of an album, by disc and track; also those that cannot be used.
    [[nodiscard]] std::vector<MusicItem> songs(const std::string& albumKey);
    /// The first song of the album that has a cover; empty: none has one.
    [[nodiscard]] std::filesystem::path artworkOf(const std::string& albumKey);
    /// Of all songs that can be played, also protected ones and those not downloaded.
    [[nodiscard]] std::size_t songCount();

private:
    MusicIndex(Database opened, std::filesystem::path file, std::filesystem::path musicFolder)
        : database(std::move(opened))
        , databaseFile(std::move(file))
        , folder(std::move(musicFolder)) {}

    struct Difference;

    [[nodiscard]] static foundation::Result<MusicIndex>
    openExisting(const std::filesystem::path& database, const std::filesystem::path& musicFolder);
    [[nodiscard]] foundation::Result<void> prepare();
    [[nodiscard]] Difference compareWith(std::vector<SongFile> files);
    foundation::Result<void> remove(const std::vector<std::string>& paths);
    foundation::Result<void>
    write(std::span<const SongFile> files, std::span<const foundation::Result<SongTags>> tags);
    foundation::Result<void> joinPlaceholders();

    Database database;
    std::filesystem::path databaseFile;
    std::filesystem::path folder;
};

} // namespace zelvo::music
