// SPDX-License-Identifier: MIT
// Whatever names a picture must find one: a button without its icon is a blank field.
#include "catalogue/Catalogue.h"
#include "ui/qml/Views.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QImageReader>
#include <QRegularExpression>
#include <QSet>
#include <QString>

namespace zelvo::ui {
namespace {

constexpr int kSmallest = 24; // the pixels a side at which an icon still has to be seen

QSet<QString> namesInCatalogue() {
    QSet<QString> names;
    for (const catalogue::Tab& tab : catalogue::tabs()) {
        for (const catalogue::Button& button : tab.buttons()) {
            const std::string_view image = button.face.image;
            if (!image.empty())
                names.insert(QString::fromUtf8(image.data(), static_cast<qsizetype>(image.size())));
        }
    }
    return names;
}

/// What the sources of the interface call an image, be it in C++ or in QML.
QSet<QString> namesInSources() {
    static const QRegularExpression imageLine(
        R"(\b(?:image|selectedImage)\s*[=:].*|\b(?:faceOf|makeArrow)\(.*)");
    static const QRegularExpression name(R"re("([A-Z][A-Za-z]+(?:[-_][A-Za-z0-9]+)*)")re");
    static const QRegularExpression translated(R"(\b(tr|qsTr)\("[^"]*"\))");
    static const QRegularExpression other(
        R"(\.?\b(name|title|key|text)\s*[=:]\s*(?:QStringLiteral\()?"[^"]*")");
    QSet<QString> names;
    QDirIterator files(
        ZELVO_TEST_SOURCE_DIR "/../src/ui",
        {"*.cpp", "*.qml"},
        QDir::Files,
        QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QFile::ReadOnly))
            continue;
        for (const QString& line : QString::fromUtf8(file.readAll()).split('\n')) {
            auto images = imageLine.match(line).captured();
            images.remove(translated).remove(other);
            auto found = name.globalMatch(images);
            while (found.hasNext())
                names.insert(found.next().captured(1));
        }
    }
    return names;
}

/// The part of the picture's pixels that are not clear; nothing where there is no such picture.
double inkOf(const QString& icon) {
    QImageReader reader(iconFile(icon));
    reader.setScaledSize({kSmallest, kSmallest});
    const QImage picture = reader.read().convertToFormat(QImage::Format_ARGB32);
    int inked = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            inked += qAlpha(picture.pixel(x, y)) > 127 ? 1 : 0;
    }
    return inked / double{kSmallest * kSmallest};
}

void expectSeen(const QSet<QString>& names) {
    for (const QString& name : names) {
        const double ink = inkOf(name);
        EXPECT_GT(ink, 0.04) << name.toStdString() << " is missing or hardly to be seen";
        EXPECT_LT(ink, 0.6) << name.toStdString() << " is a blot";
    }
}

TEST(Icons, AreThereForEveryPictureOfTheCatalogue) {
    const auto names = namesInCatalogue();
    EXPECT_TRUE(names.contains("PositionLeft"));
    expectSeen(names);
}

TEST(Icons, AreThereForEveryPictureThatTheViewsName) {
    const auto names = namesInSources();
    EXPECT_TRUE(names.contains("CloseButton_Gray")) << "the sources are read wrongly";
    expectSeen(names);
}

// The four ways in and out are told apart by their picture alone.
TEST(Icons, TellTheWaysApart) {
    const auto load = [](const QString& name) { return QImage(iconFile(name)); };
    const QStringList ways = {
        "PositionLeft",
        "PositionRight",
        "PositionUp",
        "PositionDown",
        "PositionBack",
        "PositionFront",
        "RotateLeft",
        "RotateRight",
        "RotateTop",
        "RotateBottom",
        "RotateZ",
        "RotateMinZ",
        "Hidden_On",
        "Hidden_Off",
        "Controls_on",
        "Controls_off"};
    for (const QString& one : ways) {
        for (const QString& other : ways) {
            if (one < other) {
                EXPECT_NE(load(one), load(other)) << one.toStdString() << other.toStdString();
            }
        }
    }
}

} // namespace
} // namespace zelvo::ui
