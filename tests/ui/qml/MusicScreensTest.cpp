// SPDX-License-Identifier: MIT
// The lists of albums and songs, and their view.
#include "music/MusicFixture.h"
#include "support/ViewSearch.h"
#include "ui/UiFixture.h"
#include "ui/audio/AlbumTableViewController.h"
#include "ui/audio/AudioViewController.h"
#include "ui/qml/Views.h"

#include <gmock/gmock.h>

#include <QQuickItem>
#include <QQuickView>
#include <QSignalSpy>
#include <QTest>

namespace zelvo::test {
namespace {

using music::Tags;
using ::testing::ElementsAre;

class MusicScreensTest : public UiTest {
protected:
    void write(const char* name, const Tags& tags) const {
        music::writeSong(folders.music / name, tags);
    }

    std::unique_ptr<ui::AlbumTableViewController> open() {
        auto list = std::make_unique<ui::AlbumTableViewController>(services, &editor);
        loop().runFor(3);
        return list;
    }

    [[nodiscard]] static std::vector<std::string> titlesOf(ui::AlbumTableViewController& list) {
        std::vector<std::string> titles;
        for (int row = 0; row < list.rowsObject()->rowCount(); ++row)
            titles.push_back(list.rowsObject()
                                 ->data(list.rowsObject()->index(row), Qt::DisplayRole)
                                 .toString()
                                 .toStdString());
        return titles;
    }

    ui::AudioViewController editor{services};
};

TEST_F(MusicScreensTest, SaysThatTheFolderCannotBeRead) {
    EXPECT_EQ(open()->emptyTitle(), "No music found");
    std::filesystem::remove_all(folders.music);
    media::writeBytes(folders.music, media::Bytes(10, 'x')); // cannot be listed, not even by root
    const auto list = open();
    EXPECT_EQ(list->emptyTitle(), "The folder cannot be read");
    EXPECT_TRUE(list->emptyText().contains(folders.music.c_str()));
    EXPECT_EQ(list->progress(), "Folders that cannot be read: 1");
}

TEST_F(MusicScreensTest, APickGoesToTheEditorWithArtistAndTitle) {
    write("1.wav", {{"TITLE", "One"}, {"ALBUM", "A"}, {"ARTIST", "Somebody"}});
    write("2.wav", {{"TITLE", "Two"}, {"ALBUM", "B"}});
    const auto list = open();
    const QSignalSpy dismissed(list.get(), &ui::AlbumTableViewController::dismissed);
    for (const auto& [row, expected] :
         std::map<int, std::string>{{0, "Somebody - One"}, {1, " - Two"}}) {
        list->pickRow(row);
        list->songsObject()->pickRow(0);
        loop().runFor(0.1); // it is decoded first
        EXPECT_EQ(model.audioPlayer().songTitle, expected);
    }
    EXPECT_EQ(dismissed.count(), 2);
}

TEST_F(MusicScreensTest, ASongThatCannotBeUsedSaysWhy) {
    write("1.wav", {{"TITLE", "One"}, {"ALBUM", "A"}, {"TRACKNUMBER", "1"}});
    media::writeBytes(folders.music / "2.mp3.nextcloud", media::Bytes(1, ' '));
    const auto list = open();
    QUrl opened;
    list->openFolder = [&opened](const QUrl& shown) { opened = shown; };
    list->pickRow(0);
    ASSERT_EQ(list->songsObject()->rows().size(), 2);
    const qsizetype cloud = list->songsObject()->rows()[0].icon.isEmpty() ? 1 : 0;
    list->songsObject()->pickRow(static_cast<int>(cloud));
    EXPECT_EQ(alerts.title(), "Song Unavailable");
    answer("Music");
    EXPECT_EQ(opened.toLocalFile().toStdString(), folders.music.string());
    EXPECT_FALSE(model.audioPlayer().audioURL);
}

TEST_F(MusicScreensTest, TheListFollowsTheFolderAndKeepsItsPlace) {
    write("1.wav", {{"ALBUM", "Bright"}});
    write("2.wav", {{"ALBUM", "Dark"}});
    const auto list = open();
    QSignalSpy reset(list->rowsObject(), &QAbstractItemModel::modelReset);
    QSignalSpy inserted(list->rowsObject(), &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(list->rowsObject(), &QAbstractItemModel::rowsRemoved);
    std::filesystem::remove(folders.music / "1.wav");
    write("3.wav", {{"ALBUM", "Calm"}});
    write("4.wav", {{"ALBUM", "Every"}});
    list->appDidBecomeActive();
    loop().runFor(3);
    EXPECT_THAT(titlesOf(*list), ElementsAre("Calm", "Dark", "Every"));
    EXPECT_EQ(reset.count(), 0) << "a view would jump to its beginning";
    EXPECT_EQ(removed.count(), 1);
    EXPECT_EQ(inserted.count(), 2);
}

TEST_F(MusicScreensTest, AreSeenAndWorkedByKeys) {
    for (const char* const album : {"Able", "Night", "Nocturne", "Zoo"})
        write((std::string(album) + ".wav").c_str(), {{"ALBUM", album}, {"TITLE", album}});
    const auto list = open();
    QQuickView window;
    window.setInitialProperties({{"controller", QVariant::fromValue(list.get())}});
    window.setSource(ui::viewUrl("MusicLibrary"));
    window.setResizeMode(QQuickView::SizeRootObjectToView);
    window.resize(960, 540);
    window.show();
    window.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (const char key : {'N', 'o'})
        QTest::keyClick(&window, key);
    QTest::keyClick(&window, Qt::Key_Return);
    ASSERT_NE(list->songsObject(), nullptr);
    EXPECT_EQ(list->songsObject()->title(), "Nocturne");
    QCoreApplication::processEvents();
    QTest::keyClick(&window, Qt::Key_Backspace);
    EXPECT_EQ(list->songsObject(), nullptr);
    const QSignalSpy dismissed(list.get(), &ui::AlbumTableViewController::dismissed);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(dismissed.count(), 1);
}

} // namespace
} // namespace zelvo::test
