// SPDX-License-Identifier: MIT
#include "platform/music/MusicIndex.h"

#include "music/MusicFixture.h"
#include "platform/music/AlbumList.h"
#include "platform/music/MusicFolder.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <fstream>

namespace zelvo::music {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

class MusicIndexTest : public media::MediaTest {
protected:
    const fs::path music = folder / "music";
    const fs::path database = folder / "cache" / "music.sqlite";

    [[nodiscard]] MusicIndex open() const { return std::move(*MusicIndex::open(database, music)); }

    IndexUpdate update() const { return open().update().value(); }

    [[nodiscard]] std::vector<std::string> titles() const {
        std::vector<std::string> titles;
        for (const auto& album : AlbumList::arrange(open().albums()).albums) {
            for (const auto& song : open().songs(album.key))
                titles.push_back(album.albumTitle + "/" + song.title);
        }
        return titles;
    }

    void write(const char* name, const Tags& tags) const { writeSong(music / name, tags); }
};

TEST_F(MusicIndexTest, ListsTheSongsOfAnAlbumByDiscAndTrack) {
    write("a/1.wav", {{"TITLE", "Two"}, {"ALBUM", "A"}, {"TRACKNUMBER", "2"}, {"DISCNUMBER", "1"}});
    write(
        "a/2.wav", {{"TITLE", "Three"}, {"ALBUM", "A"}, {"TRACKNUMBER", "1"}, {"DISCNUMBER", "2"}});
    write("a/3.wav", {{"TITLE", "One"}, {"ALBUM", "A"}, {"TRACKNUMBER", "1"}, {"DISCNUMBER", "1"}});
    write("a/0.wav", {{"TITLE", "Nowhere"}, {"ALBUM", "A"}});
    write("b/4.wav", {{"TITLE", "Other"}, {"ALBUM", "A"}});
    write("Live/no tags.wav", {});
    EXPECT_EQ(update().read, 6);
    EXPECT_THAT(
        titles(), ElementsAre("A/One", "A/Two", "A/Three", "A/Nowhere", "A/Other", "Live/no tags"));
}

TEST_F(MusicIndexTest, ReadsOnlyWhatHasChanged) {
    write("1.wav", {{"TITLE", "One"}, {"ALBUM", "A"}});
    write("2.wav", {{"TITLE", "Two"}, {"ALBUM", "A"}});
    media::writeBytes(music / "broken.mp3", media::Bytes(2000, 'x'));
    EXPECT_EQ(update().read, 3);
    EXPECT_EQ(update().read, 0) << "the broken one is not tried again and again";
    fs::remove(music / "1.wav");
    write("2.wav", {{"TITLE", "Changed"}, {"ALBUM", "A"}});
    const IndexUpdate second = update();
    EXPECT_EQ(second.read, 1);
    EXPECT_EQ(second.removed, 1);
    EXPECT_THAT(titles(), ElementsAre("A/Changed"));
}

TEST_F(MusicIndexTest, OffersOnlyAlbumsWithAUsableSong) {
    write("a/1.wav", {{"TITLE", "One"}, {"ALBUM", "A"}, {"TRACKNUMBER", "1"}});
    media::writeBytes(music / "a/Two.mp3.nextcloud", media::Bytes(1, ' '));
    std::ofstream(music / "a/Hollow.mp3").close();
    fs::resize_file(music / "a/Hollow.mp3", 100'000);
    write("b/bought.wav", {{"TITLE", "Bought"}, {"ALBUM", "B"}});
    ASSERT_TRUE(media::encodeSound(music / "b/x.m4a", "aac", 0.2, media::sine(440, 0.5)));
    fs::rename(music / "b/x.m4a", music / "b/x.m4p");
    fs::remove(music / "b/bought.wav");
    EXPECT_EQ(update().read, 4);
    const auto albums = open().albums();
    ASSERT_EQ(albums.size(), 1) << "an album of protected songs is not offered";
    const auto songs = open().songs(albums.front().key);
    ASSERT_EQ(songs.size(), 3) << "placeholders belong to the album of their folder";
    std::map<std::string, bool> isCloud;
    for (const MusicItem& song : songs)
        isCloud[song.title] = song.isCloudItem;
    const std::map<std::string, bool> expected{{"Hollow", true}, {"One", false}, {"Two", true}};
    EXPECT_EQ(isCloud, expected);
    EXPECT_EQ(open().songCount(), 4);
}

TEST_F(MusicIndexTest, SurvivesLoopsAndLeavesOutHiddenFolders) {
    write("a/1.wav", {{"ALBUM", "A"}});
    write(".hidden/2.wav", {{"ALBUM", "Hidden"}});
    fs::create_directory_symlink(music, music / "a/up");
    fs::create_symlink("nowhere.wav", music / "a/gone.wav");
    EXPECT_EQ(update().read, 1);
    EXPECT_THAT(titles(), ElementsAre("A/1"));
}

/// Without the rights of root, which may read all.
class AsNobody {
public:
    AsNobody() {
        if (geteuid() == 0) {
            EXPECT_EQ(seteuid(65534), 0);
        }
    }

    ~AsNobody() { EXPECT_EQ(seteuid(getuid()), 0); }

    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;
};

TEST_F(MusicIndexTest, NamesFoldersThatCannotBeRead) {
    write("a/1.wav", {{"ALBUM", "A"}});
    write("closed/2.wav", {{"ALBUM", "B"}});
    const fs::path closed = music / "closed";
    fs::permissions(closed, fs::perms::none);
    for (const fs::path& reached : {fs::path(folder), music, music / "a"})
        fs::permissions(reached, static_cast<fs::perms>(0755));
    const auto found = [&] {
        const AsNobody nobody;
        return readMusicFolder(music);
    }();
    EXPECT_EQ(found.songs.size(), 1U);
    EXPECT_THAT(found.unreadable, ElementsAre(closed));
    fs::permissions(closed, fs::perms::owner_all);
}

TEST_F(MusicIndexTest, IsMadeAnewWhenItIsDamagedOrOfAnotherVersion) {
    write("1.wav", {{"TITLE", "One"}, {"ALBUM", "A"}});
    const auto damage = std::to_array<std::function<void()>>({
        [this] { media::writeBytes(database, media::Bytes(5000, 'x')); },
        [this] { (void)Database::open(database)->run("PRAGMA user_version = 999"); },
        [this] { (void)Database::open(database)->run("DROP TABLE about"); },
    });
    for (const auto& harm : damage) {
        EXPECT_EQ(update().read, 1);
        for (const char* const part : {"-wal", "-shm"})
            fs::remove(fs::path(database).concat(part));
        harm();
    }
    EXPECT_EQ(update().read, 1);
    EXPECT_THAT(titles(), ElementsAre("A/One"));
}

TEST_F(MusicIndexTest, IsUpdatedByOneAtATimeAndReadMeanwhile) {
    write("1.wav", {{"TITLE", "One"}, {"ALBUM", "A"}});
    bool isBusy = false;
    std::size_t seen = 0;
    MusicIndex writer = open();
    const auto done = writer.update([&](const IndexProgress&) {
        isBusy = update().isBusy;
        seen = open().albums().size();
    });
    EXPECT_TRUE(done && isBusy);
    EXPECT_EQ(seen, 1);
}

TEST_F(MusicIndexTest, Takes2000FilesAndStopsWhenAsked) {
    write("0.wav", {{"ALBUM", "A"}});
    for (int i = 1; i < 2000; ++i)
        fs::copy_file(music / "0.wav", music / fmt::format("{}.wav", i));
    int handfuls = 0;
    const auto stopped =
        open().update([&](const IndexProgress&) { ++handfuls; }, [&] { return handfuls > 3; });
    EXPECT_EQ(stopped.error().cause, foundation::Cause::cancelled);
    const std::size_t before = open().songCount();
    EXPECT_GT(before, 100);
    EXPECT_EQ(update().read, 2000 - before) << "it goes on where it was stopped";
    EXPECT_EQ(update().read, 0);
}

TEST(AlbumList, HasSectionsByLetterAndFindsWhatIsTyped) {
    const auto list = AlbumList::arrange(
        {{"1", "zebra", ""},
         {"2", "Änderung", ""},
         {"3", "99 Songs", ""},
         {"4", "The Wall", ""},
         {"5", "amber", ""},
         {"6", "Ωmega", ""},
         {"7", "音楽", ""},
         {"8", "", ""}});
    std::vector<std::string> titles;
    for (const AlbumSection& section : list.sections)
        titles.push_back(section.title + std::to_string(section.length));
    EXPECT_THAT(titles, ElementsAre("A2", "T1", "Z1", "Ω1", "#3"));
    EXPECT_EQ(list.albums.at(list.find("AND").value()).key, "2");
    EXPECT_EQ(list.albums.at(list.find("the w").value()).key, "4");
    EXPECT_EQ(list.find("wall"), std::nullopt);
    EXPECT_EQ(list.sectionOf(2), 1);
    const auto volumes = AlbumList::arrange({{"10", "Volume 10", ""}, {"9", "Volume 9", ""}});
    EXPECT_EQ(volumes.albums.front().key, "9");
}

} // namespace
} // namespace zelvo::music
