// SPDX-License-Identifier: MIT
// A button whose icon is missing shows nothing at all. What the views show in the tests warns by
// itself when a file is missing (see ViewWarnings.h); these tests look at the rest.
#include "catalogue/Catalogue.h"
#include "ui/qml/Views.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QImageReader>
#include <QString>

#include <map>

namespace zelvo::ui {
namespace {

constexpr const char* kSources = ZELVO_TEST_SOURCE_DIR "/../src";
constexpr int kMinSize = 24; // pixels of a side: the smallest size in which an icon must be seen

QStringList icons() {
    QStringList names;
    for (const QString& file : QDir(QString(kSources) + "/ui/qml/icons").entryList({"*.svg"}))
        names.append(file.chopped(4));
    return names;
}

QImage pictureOf(const QString& icon) {
    QImageReader reader(iconFile(icon));
    reader.setScaledSize({kMinSize, kMinSize});
    return reader.read().convertToFormat(QImage::Format_ARGB32);
}

/// The share of the pixels that are not transparent.
double inkOf(const QImage& picture) {
    int inked = 0;
    for (int i = 0; i < picture.width() * picture.height(); ++i)
        inked += qAlpha(picture.pixel(i % picture.width(), i / picture.width())) > 127 ? 1 : 0;
    return inked / double{kMinSize * kMinSize};
}

TEST(Icons, AreSeenAndToldApart) {
    std::map<QString, QImage> pictures;
    for (const QString& name : icons()) {
        if (name == "Zelvo" || name == "PlayButton")
            continue; // the program's own; the music's, which is the preview's as well
        const QImage picture = pictureOf(name);
        EXPECT_GT(inkOf(picture), 0.04) << name.toStdString() << " can hardly be seen";
        EXPECT_LT(inkOf(picture), 0.6) << name.toStdString() << " is only a blot";
        for (const auto& [other, seen] : pictures)
            EXPECT_NE(picture, seen) << name.toStdString() << " looks like " << other.toStdString();
        pictures.emplace(name, picture);
    }
}

TEST(Icons, AreThereForEveryPictureOfTheCatalogue) {
    for (const catalogue::Tab& tab : catalogue::tabs()) {
        for (const catalogue::Button& button : tab.buttons()) {
            const auto name = QString::fromStdString(std::string(button.face.image));
            EXPECT_TRUE(name.isEmpty() || icons().contains(name)) << button.title;
        }
    }
}

// An icon that nothing names tells that a name is misspelt somewhere.
TEST(Icons, AreAllNamedInTheSources) {
    QByteArray sources;
    QDirIterator files(kSources, {"*.cpp", "*.qml"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QFile::ReadOnly));
        sources += file.readAll();
    }
    for (const QString& name : icons())
        EXPECT_TRUE(sources.contains('"' + name.toUtf8() + '"')) << name.toStdString();
}

} // namespace
} // namespace zelvo::ui
