// SPDX-License-Identifier: MIT
#include "catalogue/Catalogue.h"
#include "document/PerformanceWriter.h"
#include "document/StageReading.h"
#include "media/MediaFixture.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/image/Image.h"
#include "ui/UiFixture.h"
#include "ui/document/DocumentController.h"
#include "ui/document/MediaCopies.h"

#include <fmt/format.h>

#include <algorithm>
#include <fstream>
#include <string>

namespace zelvo::ui {

namespace {

namespace fs = std::filesystem;

class DocumentTest : public test::UiTest {
protected:
    DocumentTest() { fs::create_directories(home); }

    void press(const char* title, double at) {
        const catalogue::Tab& tab = *catalogue::tabNamed("IN1");
        const auto buttons = tab.buttons();
        controller().recordAt(at, [&] {
            catalogue::press(
                tab,
                *std::ranges::find(buttons, title, &catalogue::Button::title),
                {controller(), model.nodes().content(), 0.85},
                7);
        });
    }

    void settle() { loop().runFor(3); }

    void saveAs(const fs::path& file) {
        document.savePicked(QUrl::fromLocalFile(QString::fromStdString(file.string())));
        settle();
    }

    [[nodiscard]] std::string now() const { return document::written(document.documentNow()); }

    const fs::path home = fs::path(folders.videos) / "films";
    DocumentController document{services};
    model::Model& model_ = model;
};

} // namespace

TEST_F(DocumentTest, is_saved_and_opened_with_style_and_records) {
    EXPECT_FALSE(document.isModified());
    model.nodes().textNode1->setText("SAVED");
    press("Left In", 2.5);
    settle();
    EXPECT_TRUE(document.isModified());
    EXPECT_EQ(document.title(), "Untitled •");
    saveAs(home / "night");
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ(document.title(), "night");
    const std::string saved = now();

    model.nodes().textNode1->setText("CHANGED");
    controller().removeActions(controller().recordedActions().front()->identifier);
    settle();
    EXPECT_TRUE(document.isModified());
    document.open(home / "night.zelvo");
    answer("Don't Save");
    settle();
    EXPECT_EQ(now(), saved);
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ(controller().recordedActions().size(), 1U);
    EXPECT_FALSE(document.styles.canUndo());

    document.showTemplate({});
    settle();
    EXPECT_TRUE(controller().recordedActions().empty());
    EXPECT_EQ(document.title(), "Untitled");
}

TEST_F(DocumentTest, asks_before_unsaved_changes_go) {
    model.nodes().textNode1->setText("PRECIOUS");
    int news = 0;
    document.chooseTemplate = [&] { ++news; };
    document.askForNew();
    answer("Cancel");
    EXPECT_EQ(news, 0);

    int asked = 0;
    QObject::connect(&document, &DocumentController::saveAsked, [&] { ++asked; });
    document.askForNew();
    answer("Save");
    ASSERT_EQ(asked, 1);
    document.dialogCancelled();
    saveAs(home / "a.zelvo");
    EXPECT_EQ(news, 0) << "the user gave the saving up, and with it what it was for";

    model.nodes().textNode1->setText("MORE");
    document.askForNew();
    answer("Save"); // it has a file now
    settle();
    EXPECT_EQ(news, 1);

    EXPECT_TRUE(document.mayClose());
    model.nodes().textNode1->setText("STILL MORE");
    int allowed = 0;
    QObject::connect(&document, &DocumentController::closeAllowed, [&] { ++allowed; });
    EXPECT_FALSE(document.mayClose());
    EXPECT_FALSE(document.mayClose()) << "asked once";
    answer("Don't Save");
    EXPECT_EQ(allowed, 1);
    EXPECT_FALSE(alerts.isShowing());
    EXPECT_TRUE(document.mayClose());
}

TEST_F(DocumentTest, says_why_it_cannot_be_saved_or_opened_and_keeps_everything) {
    model.nodes().textNode1->setText("KEPT");
    std::ofstream(home / "broken.zelvo")
        << R"({"cues": [{"at": 1}], "nodes": {"TX1": {"txt": ""}}})";
    document.open(home / "broken.zelvo");
    answer("Don't Save");
    settle();
    EXPECT_TRUE(alerts.message().contains("broken.zelvo:1: unknown key \"txt\""))
        << alerts.message().toStdString();
    EXPECT_EQ(model.nodes().textNode1->text(), "KEPT");
    answer("Ok");
    saveAs("/proc/no/such.zelvo");
    EXPECT_EQ(alerts.title(), "The document cannot be saved.");
    EXPECT_TRUE(document.isModified());
}

TEST_F(DocumentTest, does_not_write_over_what_another_window_has_written) {
    saveAs(home / "shared.zelvo");
    DocumentController other(services);
    other.openPicked(QUrl::fromLocalFile(QString::fromStdString((home / "shared.zelvo").string())));
    settle();
    fs::last_write_time( // the disk's clock may be coarse
        home / "shared.zelvo",
        fs::last_write_time(home / "shared.zelvo") - std::chrono::seconds(5));
    document.save();
    answer("Cancel");
    model.nodes().textNode1->setText("MINE");
    document.save();
    EXPECT_EQ(alerts.title(), "“shared” was changed elsewhere.");
    answer("Replace");
    settle();
    EXPECT_FALSE(document.isModified());
    document.save();
    EXPECT_FALSE(alerts.isShowing()) << "this window has written it last";
}

TEST_F(DocumentTest, lists_ten_recent_files_newest_first_without_repeats) {
    for (int i = 0; i < 12; ++i)
        saveAs(home / fmt::format("f{}", i));
    saveAs(home / "f5");
    const auto recent = document.recentObjects();
    ASSERT_EQ(recent.size(), 10);
    EXPECT_EQ(recent[0]->title(), "f5");
    EXPECT_EQ(recent[1]->title(), "f11");
    EXPECT_EQ(recent[9]->title(), "f2");
    recent[1]->click();
    settle();
    EXPECT_EQ(document.title(), "f11");
    EXPECT_EQ(document.recentObjects()[0]->title(), "f11");
}

TEST_F(DocumentTest, is_offered_again_after_a_process_that_did_not_end_by_itself) {
    saveAs(home / "film.zelvo");
    model.nodes().textNode1->setText("UNSAVED");
    press("Right In", 3);
    settle();
    const std::string wanted = now();
    // As after a kill: the lock is gone, the folder is not.
    const fs::path left = *fs::directory_iterator(folders.state / "recovery");
    fs::rename(left, folders.state / "recovery" / "left");
    fs::copy(folders.state / "recovery" / "left", folders.state / "recovery" / "old");
    fs::remove_all(folders.state / "recovery" / "left");

    DocumentController next(services);
    next.showTemplate({});
    loop().runFor(1);
    next.offerRecovery();
    ASSERT_TRUE(alerts.isShowing());
    EXPECT_TRUE(alerts.message().contains("film.zelvo"));
    answer("Recover");
    loop().runFor(1);
    EXPECT_EQ(document::written(next.documentNow()), wanted);
    EXPECT_TRUE(next.isModified());
    EXPECT_EQ(next.title(), "film •");
    EXPECT_TRUE(fs::exists(folders.state / "recovery" / "old")) << "until it is saved";
    next.save();
    loop().runFor(1);
    EXPECT_FALSE(fs::exists(folders.state / "recovery" / "old"));
    EXPECT_FALSE(next.isModified());
}

TEST_F(DocumentTest, copies_what_lies_in_the_programs_own_folders) {
    const fs::path own = folders.documents / "importedAudio";
    fs::create_directories(own);
    media::writeWav(own / "song.wav", 8000, 6, media::sine(440, 0.5));
    ASSERT_TRUE(image::savePNG(image::Image(4, 4), home / "logo.png"));
    model.audioPlayer().loadSong(own / "song.wav", "Song");
    model.nodes().imageNode->setImage(std::make_shared<image::Image>(4, 4));
    model.nodes().imageNode->file = home / "logo.png";
    saveAs(home / "film.zelvo");
    fs::remove_all(own);
    document.open(home / "film.zelvo");
    settle();
    EXPECT_FALSE(alerts.isShowing()) << alerts.message().toStdString();
    EXPECT_EQ(model.audioPlayer().audioURL, home / "film media/song.wav");
    EXPECT_EQ(model.nodes().imageNode->file, home / "logo.png");

    document.collectPicked(QUrl::fromLocalFile(QString::fromStdString((home / "all").string())));
    settle();
    fs::rename(home / "all", home / "moved");
    fs::remove(home / "logo.png");
    fs::remove_all(home / "film media");
    document.open(home / "moved/film/film.zelvo");
    settle();
    EXPECT_FALSE(alerts.isShowing()) << alerts.message().toStdString();
    EXPECT_EQ(model.nodes().imageNode->file, home / "moved/film/logo.png");
    EXPECT_GT(model.audioPlayer().totalDuration, 5);
}

TEST(MediaCopies, gives_a_different_file_of_the_same_name_a_number_and_takes_textures_along) {
    const test::TemporaryFolder folder;
    const fs::path root = folder.path();
    for (const char* const place : {"a", "b"}) {
        fs::create_directories(root / place);
        std::ofstream(root / place / "ship.obj") << "mtllib ship.mtl\n# " << place << '\n';
        std::ofstream(root / place / "ship.mtl") << "newmtl m\n";
        std::ofstream(root / place / "x.png") << place << place;
    }
    document::Style style;
    const auto all = [](const fs::path&) { return true; };
    const auto copied = [&](const fs::path& picture, const fs::path& object) {
        style.picture.emplace().image = picture.string();
        style.object.emplace().object = object.string();
        const auto done = copyMedia(style, root / "out", all);
        EXPECT_TRUE(done) << done.error().message;
        return std::pair(fs::path(*style.picture->image), fs::path(*style.object->object));
    };
    const auto first = copied(root / "a/x.png", root / "a/ship.obj");
    EXPECT_EQ(first.first, root / "out/x.png");
    EXPECT_TRUE(fs::exists(first.second.parent_path() / "ship.mtl"));
    std::ofstream(root / "b/x.png") << "longer";
    EXPECT_EQ(copied(root / "b/x.png", root / "a/ship.obj").first, root / "out/x 2.png");
    EXPECT_EQ(copied(root / "a/x.png", root / "a/ship.obj"), first) << "used again";
    EXPECT_EQ(copied(root / "gone.png", root / "a/ship.obj").first, root / "gone.png");
}

} // namespace zelvo::ui
