// SPDX-License-Identifier: MIT
#include "media/MovieFixture.h"
#include "platform/foundation/UserDefaults.h"
#include "ui/UiFixture.h"
#include "ui/screens/ExportSettingsController.h"
#include "ui/screens/ExportViewController.h"

#include <fstream>
#include <memory>

namespace zelvo::test {

namespace {

using ui::ExportSettingsController;

class ExportSettingsTest : public UiTest {
protected:
    ExportSettingsTest() {
        QObject::connect(&sheet, &ExportSettingsController::accepted, [this] { ++starts; });
    }

    [[nodiscard]] const movie::MovieOptions& options() { return model.movieWriter().options; }

    ExportSettingsController sheet{services};
    int starts = 0;
};

TEST_F(ExportSettingsTest, AreThoseOfTheLastExport) {
    EXPECT_EQ(sheet.formats().at(sheet.format()), "QuickTime");
    EXPECT_EQ(sheet.sizes().at(sheet.size()), "1080p");
    EXPECT_EQ(sheet.folder().toStdString(), folders.videos.string());
    sheet.setFormat(2);
    sheet.setSize(static_cast<int>(sheet.sizes().size()) - 1);
    sheet.setOwnSize(QStringLiteral("640 × 360"));
    sheet.setQuality(2);
    sheet.setMotionBlur(2);
    sheet.setBackground(1);
    sheet.setName(" Night Run ");
    sheet.setFolder(QUrl::fromLocalFile(QString::fromStdString(folder.path().string())));
    const ExportSettingsController given_up(services);
    EXPECT_EQ(given_up.format(), 0) << "only an export keeps them";
    sheet.start();
    EXPECT_EQ(starts, 1);

    EXPECT_EQ(options().container, media::Container::webm);
    EXPECT_EQ(options().renderSize, (render::Size{640, 360}));
    EXPECT_EQ(options().quality.passes, render::kQualities.back().quality.passes);
    EXPECT_EQ(options().quality.moments, 8);
    EXPECT_NE(options().leftOut, 0U);
    EXPECT_EQ(options().copyPlace.name, "Night Run");

    const ExportSettingsController next(services);
    EXPECT_EQ(next.format(), 2);
    EXPECT_TRUE(next.hasOwnSize());
    EXPECT_EQ(next.ownSize(), "640x360");
    EXPECT_EQ(next.quality(), 2);
    EXPECT_EQ(next.motionBlur(), 2);
    EXPECT_EQ(next.background(), 1);
    EXPECT_EQ(next.name(), "Night Run");
    EXPECT_EQ(next.folder(), sheet.folder());
}

TEST_F(ExportSettingsTest, SayWhichNameTheMovieGets) {
    std::filesystem::create_directories(folders.videos);
    EXPECT_TRUE(sheet.remark().endsWith("Zelvo Movie.mov")) << sheet.remark().toStdString();
    std::ofstream(folders.videos / "Zelvo Movie.mov") << "there is one";
    EXPECT_TRUE(sheet.remark().endsWith("Zelvo Movie 2.mov")) << "it is not replaced";
    sheet.setFormat(2);
    EXPECT_TRUE(sheet.remark().endsWith("Zelvo Movie.webm"));
    sheet.setFormat(3);
    EXPECT_TRUE(sheet.remark().endsWith("Zelvo Movie")) << "a folder";
    for (const char* name : {"", "  ", "a/b", ".hidden"}) {
        sheet.setName(name);
        EXPECT_FALSE(sheet.canStart()) << name;
        sheet.start();
    }
    sheet.setName("Fine");
    sheet.setSize(static_cast<int>(sheet.sizes().size()) - 1);
    for (const char* size : {"", "1920", "641x360", "8x8", "99999x2"}) {
        sheet.setOwnSize(size);
        EXPECT_FALSE(sheet.canStart()) << size;
        sheet.start();
    }
    EXPECT_EQ(starts, 0) << "what cannot be made is not begun";
}

TEST_F(ExportSettingsTest, HaveAlphaOnlyWhereTheFileCanHoldIt) {
    sheet.setBackground(1);
    sheet.setFormat(1);
    EXPECT_FALSE(sheet.canHaveAlpha());
    EXPECT_EQ(sheet.background(), 0);
    sheet.start();
    EXPECT_EQ(options().leftOut, 0U);
    sheet.setFormat(0);
    EXPECT_EQ(sheet.background(), 1) << "the choice comes back";
}

TEST_F(ExportSettingsTest, AreNotLedAstrayByWhatAFileHolds) {
    world.defaults.set("ExportFormat", std::string("avi"));
    world.defaults.set("ExportSize", std::string("7x7"));
    world.defaults.set("ExportQuality", 3.0);
    world.defaults.set("ExportMotionBlur", 1e9);
    world.defaults.set("ExportName", std::string("../../escape"));
    world.defaults.set("ExportFolder", std::string("/not/there"));
    ExportSettingsController odd(services);
    odd.start();
    EXPECT_EQ(options().container, media::Container::quickTime);
    EXPECT_EQ(options().renderSize, (render::Size{1920, 1080}));
    EXPECT_EQ(options().quality.moments, 1);
    EXPECT_EQ(options().copyPlace.name, "Zelvo Movie");
    EXPECT_EQ(options().copyPlace.folder, folders.videos);
    world.defaults.set("ExportMotionBlur", 6.0);
    EXPECT_EQ(ExportSettingsController(services).motionBlur(), 1);
}

TEST_F(ExportSettingsTest, PicturesComeAsAWholeFolderOrNotAtAll) {
    model.setDuration(2);
    sheet.setFormat(3);
    sheet.setSize(static_cast<int>(sheet.sizes().size()) - 1);
    sheet.setOwnSize("64x36");
    std::filesystem::create_directories(folders.videos / "Zelvo Movie");
    sheet.start();
    const auto names = [this] {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folders.videos))
            found.push_back(entry.path().filename());
        std::ranges::sort(found);
        return found;
    };
    ui::BlurCover cover{world.runLoop};
    {
        ui::ExportViewController cancelled(services, cover, ui::Sharing{});
        ASSERT_TRUE(loop().runUntil([&] { return cancelled.currentPerc >= 80; }));
        EXPECT_EQ(names().size(), 2U) << "a folder that nobody sees yet";
        cancelled.dismissViewController();
    }
    EXPECT_EQ(names(), std::vector<std::string>{"Zelvo Movie"});

    ui::ExportViewController screen(services, cover, ui::Sharing{});
    ASSERT_TRUE(loop().runUntil([&] { return !screen.picturesPlace().isEmpty(); }));
    EXPECT_EQ(names(), (std::vector<std::string>{"Zelvo Movie", "Zelvo Movie 2"}));
    const auto place = folders.videos / "Zelvo Movie 2";
    EXPECT_EQ(screen.picturesPlace().toStdString(), place.string());
    EXPECT_EQ(screen.preview(), nullptr);
    EXPECT_TRUE(std::filesystem::exists(place / "frame_00000.png"));
    EXPECT_TRUE(std::filesystem::exists(place / "frame_00117.png"));
    EXPECT_FALSE(std::filesystem::exists(place / "frame_00118.png")) << "the last three are cut";
    EXPECT_NE(
        std::filesystem::status(place).permissions() & std::filesystem::perms::others_read,
        std::filesystem::perms::none)
        << "as other folders are";
}

} // namespace

} // namespace zelvo::test
