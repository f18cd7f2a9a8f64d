// SPDX-License-Identifier: MIT
#include "support/ZipFile.h"
#include "text/FontForms.h"
#include "ui/UiFixture.h"
#include "ui/imports/FontImportViewController.h"
#include "ui/imports/FontImporter.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace zelvo::ui {

namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

class FontImportTest : public test::UiTest {
protected:
    FontImportTest() {
        fontManager.fontsInstalled.subscribe(listening, [this] { ++installations; });
    }

    [[nodiscard]] static std::string font(const std::string& file) {
        return test::bytesOf(foundation::mainBundle().path("fonts/" + file));
    }

    bool import(const fs::path& file) {
        const bool isTaken = FontImporter(services).importFile(file);
        loop().drain();
        return isTaken;
    }

    [[nodiscard]] fs::path archive() const { return folder.path() / "fonts.zip"; }

    /// What is unpacked at the moment.
    [[nodiscard]] std::size_t leftInTemporary() const {
        const fs::directory_iterator entries(folders.temporary);
        return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    }

    int installations = 0; ///< signals
};

TEST_F(FontImportTest, AsksBeforeItInstallsAnArchiveAndLeavesNothingBehind) {
    test::ZipFile zip(archive());
    zip.add("readme.txt").add("deep/er/Abel-Regular.ttf", font("Abel-Regular.ttf"));
    zip.add("Broken.otf", "no font").add("__MACOSX/._Abel-Regular.ttf", "no font");
    zip.add("Geo-Regular.TTF", font("Geo-Regular.ttf"))
        .add("x.ttf", font("Geo-Regular.ttf"))
        .close();

    EXPECT_TRUE(import(archive()));
    EXPECT_EQ(alerts.title(), "Do you want to install 4 fonts?");
    EXPECT_EQ(alerts.message(), "");
    EXPECT_EQ(leftInTemporary(), 1U);
    answer("Cancel");
    EXPECT_EQ(leftInTemporary(), 0U);
    EXPECT_TRUE(fontManager.importedFiles().empty());
    EXPECT_FALSE(alerts.isShowing());

    EXPECT_TRUE(import(archive()));
    answer("Ok");
    EXPECT_THAT(alerts.title().toStdString(), testing::StartsWith("Broken.otf: is no TrueType"));
    alerts.escape();
    EXPECT_EQ(alerts.title(), "3 Font(s) installed");
    EXPECT_EQ(alerts.message(), "Already there: Geo");
    alerts.escape();
    EXPECT_EQ(installations, 1);
    EXPECT_EQ(leftInTemporary(), 0U);
    EXPECT_THAT(
        fontManager.importedFiles(), UnorderedElementsAre("Abel-Regular.ttf", "Geo-Regular.TTF"));

    EXPECT_TRUE(import(archive()));
    answer("Ok");
    alerts.escape();
    EXPECT_EQ(alerts.title(), "3 Font(s) installed") << "those that were there count";
}

TEST_F(FontImportTest, SaysWhyAnArchiveGivesNoFonts) {
    test::ZipFile(archive()).addFolder("a/").add("a/picture.png").close();
    EXPECT_FALSE(import(archive()));
    EXPECT_EQ(alerts.title(), "No Fonts Found");
    EXPECT_EQ(alerts.message(), "");
    alerts.escape();

    test::ZipFile(archive()).add("Geo.ttf", font("Geo-Regular.ttf")).add("../evil.ttf").close();
    EXPECT_FALSE(import(archive()));
    EXPECT_EQ(alerts.title(), "No Fonts Found");
    EXPECT_THAT(alerts.message().toStdString(), testing::HasSubstr("outside of its folder"));
    EXPECT_EQ(leftInTemporary(), 0U);
    EXPECT_FALSE(fs::exists(folders.temporary / "evil.ttf"));
}

TEST_F(FontImportTest, InstallsAFontWithoutAWordAndDecidesByTheExtension) {
    const auto given = [this](const std::string& name) {
        std::ofstream(folder.path() / name, std::ios::binary) << font("Abel-Regular.ttf");
        return folder.path() / name;
    };
    EXPECT_FALSE(import(given("font.txt")));
    EXPECT_EQ(alerts.title(), "Unsupported file.");
    alerts.escape();
    EXPECT_TRUE(import(given("font.OTF")));
    EXPECT_FALSE(alerts.isShowing());
    EXPECT_TRUE(import(given("copy.ttf")));
    EXPECT_EQ(alerts.title(), "There is a font named “Abel Regular” already.");
    EXPECT_EQ(installations, 0);
}

TEST_F(FontImportTest, TheScreenListsDeletesAndPicks) {
    struct Delegate : FontImportViewControllerDelegate {
        void fontImported(const std::string& name) override { picked.push_back(name); }

        std::vector<std::string> picked;
        foundation::Lifetime lifetime;
    };

    FontImportViewController screen(services);
    EXPECT_EQ(screen.title(), "Imported Fonts (0)");
    auto delegate = std::make_unique<Delegate>();
    screen.setDelegate(*delegate, delegate->lifetime);
    const auto install = [this](const std::string& as, const std::string& file) {
        std::ofstream(folder.path() / as, std::ios::binary) << font(file);
        EXPECT_TRUE(import(folder.path() / as));
    };
    install("b.ttf", "Abel-Regular.ttf");
    install("A.ttf", "Geo-Regular.ttf");
    install("c.ttf", "Orbitron-Bold.ttf");
    EXPECT_EQ(screen.title(), "Imported Fonts (3)");
    EXPECT_EQ(screen.rows(), (QStringList{"A.ttf", "b.ttf", "c.ttf"}));

    int closed = 0;
    QObject::connect(&screen, &FontImportViewController::dismissed, [&closed] { ++closed; });
    screen.pickRow(0);
    EXPECT_EQ(delegate->picked, std::vector<std::string>{"Abel Regular"})
        << "the first of the sorted names, not the name of the first file";
    EXPECT_EQ(closed, 1);
    delegate.reset();
    screen.pickRow(1); // nobody is told any more

    screen.deleteRow(1);
    screen.deleteRow(7);
    EXPECT_EQ(screen.rows(), (QStringList{"A.ttf", "c.ttf"}));
    EXPECT_EQ(screen.title(), "Imported Fonts (2)");
}

} // namespace

} // namespace zelvo::ui
