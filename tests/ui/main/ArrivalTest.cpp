// SPDX-License-Identifier: MIT
// Files and pictures that come from outside.
#include "image/ImageFiles.h"
#include "support/TemporaryFolder.h"
#include "ui/UiFixture.h"
#include "ui/imports/ObjectController.h"
#include "ui/layouter/ImagePanel.h"
#include "ui/layouter/LayouterMenu.h"
#include "ui/layouter/Strips.h"
#include "ui/main/MainViewController.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QMimeData>
#include <QUrl>

#include <filesystem>
#include <fstream>

namespace zelvo::ui {
namespace {

using std::filesystem::path;

class ArrivalTest : public test::UiTest {
protected:
    path write(const std::string& name, const std::string& bytes) {
        std::ofstream(folder.path() / name, std::ios::binary) << bytes;
        return folder.path() / name;
    }

    path picture(const std::string& name, int width, int height) {
        EXPECT_TRUE(savePNG(image::quartered(width, height), folder.path() / name));
        return folder.path() / name;
    }

    static QUrl url(const path& file) { return QUrl::fromLocalFile(file.c_str()); }

    bool open(const path& file) {
        const bool isAccepted = main.openURL(url(file));
        loop().runFor(1);
        return isAccepted;
    }

    /// The width of the picture on the stage.
    [[nodiscard]] int width() const { return node.image()->width; }

    [[nodiscard]] LayouterMenu& panel() { return *qobject_cast<LayouterMenu*>(main.panel()); }

    test::TemporaryFolder folder;
    MainViewController main{services};
    content::ImageNode& node = *nodes.imageNode;
};

TEST_F(ArrivalTest, APictureArrivesUprightInItsFirstPlaceAndVisible) {
    const glm::vec3 home = node.layoutPosition();
    node.hFlipped = true;
    node.setLayoutPosition({40, 50, 60});
    panel().setCurrentNodeFromButton(0);
    ASSERT_FALSE(node.isVisible);
    ASSERT_TRUE(main.openURL(url(picture("wide.png", 64, 16))));
    EXPECT_EQ(panel().currentNode(), nodes.imageNode);
    panel().setCurrentNodeFromButton(2);
    const auto shownTitle = [this] {
        return qobject_cast<ImagePanel*>(panel().stripObject())
            ->toggleImageVisibilityButton.title();
    };
    EXPECT_EQ(shownTitle(), "Show");
    loop().runFor(1);
    EXPECT_EQ(width(), 64);
    EXPECT_NEAR(node.plane->height(), node.plane->width() / 4, 0.01);
    EXPECT_FALSE(node.hFlipped);
    EXPECT_EQ(node.layoutPosition(), home);
    EXPECT_FALSE(node.contentNode->isHidden);
    EXPECT_EQ(shownTitle(), "Hide");

    panel().setCurrentNodeFromButton(1);
    ASSERT_TRUE(main.openURL(url(picture("next.png", 8, 8))));
    panel().setCurrentNodeFromButton(1); // the user goes on while it is loading
    loop().runFor(1);
    EXPECT_EQ(width(), 8);
    EXPECT_EQ(panel().currentNode(), nodes.textNode2);
}

TEST_F(ArrivalTest, TheLastPictureAskedForStaysAndNoneChangesAMovie) {
    EXPECT_TRUE(main.openURL(url(write("broken.png", "\x89PNG\r\n\x1A\n"))));
    EXPECT_TRUE(main.openURL(url(picture("a.png", 10, 10))));
    EXPECT_TRUE(main.openURL(url(picture("b.png", 20, 20))));
    loop().runFor(1);
    EXPECT_EQ(width(), 20);
    EXPECT_FALSE(alerts.isShowing()) << "nobody waits for the broken one any more";

    record("Drop", 1, 1);
    main.setEditing(true);
    EXPECT_TRUE(main.openURL(url(picture("c.png", 30, 30))));
    main.share();
    ASSERT_NE(main.screen(), nullptr);
    loop().drain();
    EXPECT_EQ(width(), 20);
    QMetaObject::invokeMethod(main.screen(), "dismissed");
    EXPECT_EQ(width(), 30);
}

TEST_F(ArrivalTest, WhatCannotBeOpenedIsNamedWithItsCause) {
    const image::ImagePtr before = node.image();
    const path whole = picture("whole.png", 40, 40);
    std::filesystem::copy_file(whole, folder.path() / "cut.png");
    std::filesystem::resize_file(folder.path() / "cut.png", 100);
    ASSERT_EQ(mkfifo((folder.path() / "pipe.png").c_str(), 0600), 0);

    struct Row {
        path file;
        const char* title;
        const char* message;
    };

    const char* const picture = "The picture cannot be opened.";
    // clang-format off
    const Row rows[] = {
        {folder.path() / "none.png",        "There is no such file.", "none.png"                   },
        {folder.path(),                     "No 3D files found in the folder", ""                  },
        {folder.path() / "pipe.png",        "This is not a file.",    "pipe.png"                   },
        {write("empty.png", ""),            picture,                  "empty.png: the file is empty"},
        {folder.path() / "cut.png",         picture,                  "cut.png: the picture is damaged"},
        {write("page.png", "plain text"),   picture,                  "page.png: this is no picture"},
        {write("notes.txt", "plain text"),  "Unsupported file.",      ""},
    };
    // clang-format on
    for (const Row& row : rows) {
        open(row.file);
        ASSERT_TRUE(alerts.isShowing()) << row.file;
        EXPECT_EQ(alerts.title(), row.title) << row.file;
        EXPECT_TRUE(alerts.message().startsWith(row.message)) << alerts.message().toStdString();
        alerts.accept();
    }
    EXPECT_TRUE(main.openURL(url(whole)));
    std::filesystem::remove(whole); // before it is read
    loop().runFor(1);
    EXPECT_EQ(alerts.message(), "whole.png: there is no such file");
    EXPECT_EQ(node.image(), before);
}

TEST_F(ArrivalTest, DropsAndPastesBringFilesPicturesOrPaths) {
    const path png = picture("a.png", 12, 12);
    QByteArray bytes;
    for (const std::uint8_t byte : image::bytesOf(picture("b.png", 24, 24)))
        bytes.append(static_cast<char>(byte));
    const auto opened = [this](const QMimeData& data) {
        node.setImage(nullptr);
        const bool isAny = main.open(data);
        loop().runFor(1);
        return isAny && node.image() ? width() : 0;
    };
    QMimeData data;
    data.setData("image/png", bytes);
    EXPECT_EQ(FileSystem::offerOf(data), Offer::picture);
    EXPECT_EQ(opened(data), 24);
    data.setUrls({QUrl("https://example.org/a.png")});
    EXPECT_EQ(FileSystem::offerOf(data), Offer::picture) << "a browser gives both";
    EXPECT_EQ(opened(data), 24);
    data.setUrls({url(write("notes.txt", "text")), url(png)});
    EXPECT_EQ(FileSystem::offerOf(data), Offer::picture);
    EXPECT_EQ(opened(data), 12);
    EXPECT_TRUE(alerts.isShowing()) << "for the other file";
    alerts.accept();

    QMimeData text;
    text.setText(QString::fromStdString(png.string()) + "\n");
    EXPECT_EQ(opened(text), 12);
    for (const char* const none : {"Some words", "", "/no/such/file.png"}) {
        text.setText(none);
        EXPECT_FALSE(main.open(text)) << none;
        EXPECT_EQ(FileSystem::offerOf(text), Offer::unknown);
    }
    EXPECT_FALSE(alerts.isShowing());

    QMimeData link;
    link.setUrls({QUrl("https://example.org/a.png")});
    EXPECT_EQ(FileSystem::offerOf(link), Offer::link);
    EXPECT_EQ(opened(link), 0);
    EXPECT_EQ(alerts.title(), "Links cannot be opened.");
}

TEST_F(ArrivalTest, AnObjectComesOntoTheStageWithItsPartsAndNamesWhatIsMissing) {
    const auto& media = *nodes.mediaNode;
    const image::ImagePtr before = node.image();
    const auto triangle = [](const std::string& material) {
        return "mtllib a.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl " + material + "\nf 1 2 3\n";
    };
    QMimeData data;
    data.setUrls(
        {url(picture("hull.png", 4, 4)),
         url(write("a.obj", triangle("red"))),
         url(write("a.mtl", "newmtl red\nmap_Kd hull.png\nnewmtl blue\nmap_Kd none.png\n"))});
    EXPECT_EQ(FileSystem::offerOf(data), Offer::object);
    EXPECT_TRUE(main.open(data));
    EXPECT_EQ(panel().currentNode(), nodes.mediaNode);
    loop().runFor(1);
    const scene::SCNNodePtr first = media.customNode();
    ASSERT_NE(first, nullptr);
    EXPECT_FALSE(alerts.isShowing());
    EXPECT_EQ(node.image(), before) << "the picture is a texture";
    EXPECT_TRUE(qobject_cast<ButtonStrip*>(panel().stripObject())->firstButton()->isMySelected());

    EXPECT_TRUE(main.open({write("b.obj", triangle("blue"))}));
    loop().runFor(1);
    EXPECT_EQ(alerts.title(), "b.obj is not complete.");
    EXPECT_EQ(alerts.message(), "the picture none.png is missing");
    alerts.accept();
    const scene::SCNNodePtr second = media.customNode();
    EXPECT_NE(second, first);

    EXPECT_TRUE(main.open({write("broken.usdz", "PK")}));
    loop().runFor(1);
    EXPECT_EQ(alerts.title(), "The object cannot be opened.");
    EXPECT_TRUE(alerts.message().startsWith("broken.usdz: "));
    alerts.accept();
    EXPECT_TRUE(main.open({folder.path() / "a.obj"}));
    EXPECT_TRUE(main.loadingObject()->isLoading());
    main.loadingObject()->giveUp();
    loop().runFor(1);
    EXPECT_EQ(media.customNode(), second);
}

TEST_F(ArrivalTest, TheListOfObjectsPutsAChosenOneOnTheStageAndAMovieStaysAsItIs) {
    const auto object = [this](const std::string& name) {
        return write(name, "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    };
    panel().setCurrentNodeFromButton(3);
    panel().showObjectImport();
    auto* list = qobject_cast<ObjectController*>(main.screen());
    ASSERT_NE(list, nullptr);
    QMimeData data;
    data.setUrls({url(picture("a.png", 4, 4)), url(object("b.obj"))});
    EXPECT_TRUE(main.open(data));
    loop().runFor(1);
    EXPECT_EQ(list->rows().size(), 2);
    EXPECT_EQ(nodes.mediaNode->customNode(), nullptr) << "the user has chosen none";
    list->pickRow(0);
    loop().runFor(1);
    EXPECT_EQ(alerts.message(), "a.png: this is no 3D object; use a USDZ, OBJ, glTF or STL file");
    alerts.accept();
    EXPECT_NE(main.screen(), nullptr);
    list->pickRow(1);
    loop().runFor(1);
    EXPECT_EQ(main.screen(), nullptr);
    const scene::SCNNodePtr chosen = nodes.mediaNode->customNode();
    EXPECT_NE(chosen, nullptr);

    record("Drop", 1, 1);
    main.setEditing(true);
    EXPECT_TRUE(main.open({object("c.obj")}));
    main.share();
    ASSERT_NE(main.screen(), nullptr);
    loop().drain();
    EXPECT_EQ(nodes.mediaNode->customNode(), chosen);
    QMetaObject::invokeMethod(main.screen(), "dismissed");
    EXPECT_NE(nodes.mediaNode->customNode(), chosen);
}

TEST_F(ArrivalTest, TwoTapsOnTheImageAskWhereThePictureIs) {
    QUrl asked;
    QObject::connect(
        &panel(), &LayouterMenu::pictureAsked, [&asked](const QUrl& place) { asked = place; });
    panel().setCurrentNodeFromButton(2);
    qobject_cast<ImagePanel*>(panel().stripObject())->importButton.click();
    answer("Cancel");
    EXPECT_TRUE(asked.isEmpty());
    node.setImage(std::make_shared<const image::Image>(image::quartered(8, 8)));
    for (const node::NodePtr& other : nodes.content())
        other->setLayoutPosition(other == nodes.imageNode ? glm::vec3(0) : glm::vec3(0, 5000, 0));
    panel().setCurrentNode(nullptr);
    panel().handleDoubleTap({{480, 270}, {960, 540}});
    EXPECT_EQ(panel().currentNode(), nodes.imageNode);
    answer("Photos");
    EXPECT_TRUE(asked.isLocalFile());
    panel().pictureWasPicked(url(picture("picked.png", 16, 16)));
    loop().runFor(1);
    EXPECT_EQ(width(), 16);
}

} // namespace
} // namespace zelvo::ui
