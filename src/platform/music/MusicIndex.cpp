// SPDX-License-Identifier: MIT
#include "platform/music/MusicIndex.h"

#include "platform/foundation/Descriptor.h"
#include "platform/music/CleanText.h"
#include "platform/music/MusicFolder.h"

#include <fcntl.h>
#include <sys/file.h>

#include <QString>

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

namespace zelvo::music {

namespace fs = std::filesystem;

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

/// Count it up with each change of the tables.
constexpr int kSchemaVersion = 1;
/// Files that one helper reads: its start costs as much as some ten of them.
constexpr std::size_t kHandful = 64;

/// `state`: 0 a song, 1 nothing that can be played (kept, so that it is not read again and again).
/// `hasAlbum`: the album is named by a tag.
constexpr const char* kSchema = R"(
    CREATE TABLE about (folder TEXT NOT NULL);
    CREATE TABLE songs (
        path TEXT PRIMARY KEY, folder TEXT NOT NULL, size INTEGER, changed INTEGER, state INTEGER,
        title TEXT, album TEXT, albumArtist TEXT, albumKey TEXT, hasAlbum INTEGER,
        track INTEGER, disc INTEGER, duration REAL,
        isProtected INTEGER, isCloud INTEGER, hasCover INTEGER) WITHOUT ROWID;
    CREATE INDEX albums ON songs (albumKey, disc, track);
)";

constexpr const char* kInsert = R"(
    INSERT OR REPLACE INTO songs VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13,
                                         ?14, ?15, ?16))";

/// The other columns come from the row with the least track.
constexpr const char* kAlbums = R"(
    SELECT albumKey, album, albumArtist, MIN(disc * 10000 + track) FROM songs
    WHERE state = 0 AND NOT isProtected AND NOT isCloud GROUP BY albumKey)";

constexpr const char* kSongs = R"(
    SELECT path, title, album, albumArtist, duration, isProtected, isCloud, hasCover FROM songs
    WHERE albumKey = ?1 AND state = 0 ORDER BY track = 0, disc, track, path)";

/// A placeholder cannot tell its album. Where all other songs of its folder are of one, it is, too.
constexpr const char* kJoinPlaceholders = R"(
    UPDATE songs SET (albumKey, album, albumArtist) =
        (SELECT other.albumKey, other.album, other.albumArtist FROM songs AS other
         WHERE other.folder = songs.folder AND other.hasAlbum)
    WHERE isCloud AND 1 =
        (SELECT COUNT(DISTINCT other.albumKey) FROM songs AS other
         WHERE other.folder = songs.folder AND other.hasAlbum))";

/// Held by the process that updates. The kernel gives it up when the process ends.
class UpdateLock {
public:
    explicit UpdateLock(const fs::path& database)
        : file(open(
              fs::path(database).concat("-update").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600))
        , isHeld_(file.isOpen() && flock(file.get(), LOCK_EX | LOCK_NB) == 0) {}

    [[nodiscard]] bool isHeld() const { return isHeld_; }

private:
    foundation::Descriptor file;
    bool isHeld_;
};

void removeDatabase(const fs::path& file) {
    std::error_code ignored;
    for (const char* const part : {"", "-wal", "-shm"})
        fs::remove(fs::path(file).concat(part), ignored);
}

/// The name of a file or folder, fit to be shown.
std::string shownName(const fs::path& name) {
    const QString text = QString::fromStdString(name.string());
    return cleanText(text.toStdU16String(), SongTags::kMaxTextLength);
}

/// "Winter Songs", for a song without tags in a folder of that name. Nothing for the music folder
/// itself.
std::string albumByFolder(const fs::path& song, const fs::path& musicFolder) {
    const fs::path folder = song.parent_path();
    return folder == musicFolder ? std::string() : shownName(folder.filename());
}

/// Songs with the same key are one album. Albums of many artists often lack an album artist; then the
/// folder keeps them together, and apart from others of the same name.
std::string albumKeyOf(const SongTags& tags, const fs::path& song) {
    constexpr char kSeparator = '\x1F'; // in no tag
    if (tags.album.empty())
        return kSeparator + song.parent_path().string();
    if (tags.albumArtist.empty())
        return tags.album + kSeparator + song.parent_path().string();
    return tags.album + kSeparator + kSeparator + tags.albumArtist;
}

/// The tags of files. Placeholders are not opened, because that would fetch them.
Result<std::vector<Result<SongTags>>>
readHandful(std::span<const SongFile> files, const IsStopped& isStopped) {
    std::vector<fs::path> paths;
    for (const SongFile& file : files) {
        if (!file.isCloudItem)
            paths.push_back(file.path);
    }
    auto read = readTags(paths, isStopped);
    if (!read)
        return read;
    std::vector<Result<SongTags>> all;
    auto next = read->begin();
    for (const SongFile& file : files)
        all.push_back(file.isCloudItem ? Result<SongTags>(SongTags()) : std::move(*next++));
    return all;
}

} // namespace

struct MusicIndex::Difference {
    std::vector<SongFile> changed;
    std::vector<std::string> gone;
};

Result<MusicIndex> MusicIndex::open(const fs::path& database, const fs::path& musicFolder) {
    std::error_code error;
    fs::create_directories(database.parent_path(), error);
    auto index = openExisting(database, musicFolder);
    if (index || index.error().cause != Cause::malformed)
        return index;
    removeDatabase(database);
    return openExisting(database, musicFolder);
}

Result<MusicIndex> MusicIndex::openExisting(const fs::path& database, const fs::path& musicFolder) {
    auto opened = Database::open(database);
    if (!opened)
        return tl::unexpected(opened.error());
    MusicIndex index(std::move(*opened), database, musicFolder.lexically_normal());
    if (auto prepared = index.prepare(); !prepared)
        return tl::unexpected(prepared.error());
    return index;
}

Result<void> MusicIndex::prepare() {
    auto set = database.run("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL");
    if (!set)
        return set;
    Transaction transaction(database);
    Statement asked = database.prepare("PRAGMA user_version");
    const std::int64_t version = asked.step() ? asked.number(0) : -1;
    asked.reset();
    if (version == 0) { // new
        (void)database.run(kSchema);
        Statement about = database.prepare("INSERT INTO about VALUES (?1)");
        about.bind(1, folder.string()).step();
        about.reset();
        (void)database.run("PRAGMA user_version = " + std::to_string(kSchemaVersion));
        return transaction.commit();
    }
    Statement about = database.prepare("SELECT folder FROM about");
    if (version != kSchemaVersion || !about.step() || about.text(0) != folder.string())
        return fail(Cause::malformed, "the index is of another version or folder");
    about.reset();
    return transaction.commit();
}

MusicIndex::Difference MusicIndex::compareWith(std::vector<SongFile> files) {
    std::unordered_map<std::string, SongFile> known;
    Statement rows = database.prepare("SELECT path, size, changed, isCloud FROM songs");
    while (rows.step()) {
        const std::string path = rows.text(0);
        known[path] = {path, rows.number(1), rows.number(2), rows.number(3) != 0};
    }
    Difference difference;
    for (SongFile& file : files) {
        const auto found = known.find(file.path.native());
        const bool isSame = found != known.end() && found->second == file;
        if (found != known.end())
            known.erase(found);
        if (!isSame)
            difference.changed.push_back(std::move(file));
    }
    for (const auto& [path, file] : known)
        difference.gone.push_back(path);
    return difference;
}

Result<void> MusicIndex::remove(const std::vector<std::string>& paths) {
    Transaction transaction(database);
    Statement row = database.prepare("DELETE FROM songs WHERE path = ?1");
    for (const std::string& path : paths) {
        row.bind(1, path).step();
        row.reset();
    }
    return transaction.commit();
}

Result<void>
MusicIndex::write(std::span<const SongFile> files, std::span<const Result<SongTags>> tags) {
    Transaction transaction(database);
    Statement row = database.prepare(kInsert);
    for (std::size_t i = 0; i < files.size(); ++i) {
        const SongFile& file = files[i];
        const SongTags song = tags[i].value_or(SongTags());
        const fs::path named = withoutPlaceholderSuffix(file.path);
        row.bind(1, file.path.native()).bind(2, file.path.parent_path().native());
        row.bind(3, file.size).bind(4, file.changed);
        row.bind(5, std::int64_t{tags[i] ? 0 : 1});
        row.bind(6, song.title.empty() ? shownName(named.stem()) : song.title);
        row.bind(7, song.album.empty() ? albumByFolder(file.path, folder) : song.album);
        row.bind(8, song.albumArtist.empty() ? song.artist : song.albumArtist);
        row.bind(9, albumKeyOf(song, file.path));
        row.bind(10, std::int64_t{song.album.empty() ? 0 : 1});
        row.bind(11, std::int64_t{song.track}).bind(12, std::int64_t{song.disc});
        row.bind(13, song.duration);
        row.bind(14, std::int64_t{song.isProtected ? 1 : 0});
        row.bind(15, std::int64_t{file.isCloudItem ? 1 : 0});
        row.bind(16, std::int64_t{song.hasCover ? 1 : 0});
        row.step();
        row.reset();
    }
    return transaction.commit();
}

Result<void> MusicIndex::joinPlaceholders() {
    return database.run(kJoinPlaceholders);
}

Result<IndexUpdate> MusicIndex::update(
    const std::function<void(const IndexProgress&)>& progress, const IsStopped& isStopped) {
    const UpdateLock lock(databaseFile);
    if (!lock.isHeld())
        return IndexUpdate{.isBusy = true, .folders = {}};
    MusicFolderContents contents = readMusicFolder(folder, {}, isStopped);
    if (isStopped && isStopped())
        return fail(Cause::cancelled, "nobody waits for it any more");
    const Difference difference = compareWith(std::move(contents.songs));
    auto written = remove(difference.gone);
    std::span<const SongFile> left = difference.changed;
    while (written && !left.empty()) {
        const auto files = left.first(std::min(kHandful, left.size()));
        const auto tags = readHandful(files, isStopped);
        if (!tags)
            return tl::unexpected(tags.error());
        written = write(files, *tags);
        left = left.subspan(files.size());
        if (progress)
            progress({.known = songCount(), .left = left.size()});
    }
    if (written && !difference.changed.empty())
        written = joinPlaceholders();
    if (!written)
        return tl::unexpected(written.error());
    return IndexUpdate{
        .read = difference.changed.size(),
        .removed = difference.gone.size(),
        .folders = std::move(contents.folders),
        .unreadable = std::move(contents.unreadable)};
}

std::vector<MusicAlbum> MusicIndex::albums() {
    std::vector<MusicAlbum> albums;
    for (Statement rows = database.prepare(kAlbums); rows.step();)
        albums.push_back({rows.text(0), rows.text(1), rows.text(2)});
    return albums;
}

std::vector<MusicItem> MusicIndex::songs(const std::string& albumKey) {
    std::vector<MusicItem> songs;
    Statement rows = database.prepare(kSongs);
    rows.bind(1, albumKey);
    while (rows.step()) {
        songs.push_back(
            {.assetURL = rows.text(0),
             .title = rows.text(1),
             .albumTitle = rows.text(2),
             .albumArtist = rows.text(3),
             .duration = rows.real(4),
             .hasProtectedAsset = rows.number(5) != 0,
             .isCloudItem = rows.number(6) != 0,
             .hasArtwork = rows.number(7) != 0});
    }
    return songs;
}

fs::path MusicIndex::artworkOf(const std::string& albumKey) {
    Statement row = database.prepare(
        "SELECT path FROM songs WHERE albumKey = ?1 AND hasCover ORDER BY disc, track LIMIT 1");
    row.bind(1, albumKey);
    return row.step() ? fs::path(row.text(0)) : fs::path();
}

std::size_t MusicIndex::songCount() {
    Statement row = database.prepare("SELECT COUNT(*) FROM songs WHERE state = 0");
    return row.step() ? static_cast<std::size_t>(row.number(0)) : 0;
}

} // namespace zelvo::music
