// SPDX-License-Identifier: MIT
#include "ui/UiFixture.h"
#include "ui/qml/TrueColorSink.h"
#include "ui/screens/PreviewViewController.h"

#include <gmock/gmock.h>

#include <array>
#include <atomic>
#include <fstream>
#include <sstream>
#include <thread>

namespace zelvo::test {

namespace {

class PreviewTest : public UiTest {
protected:
    PreviewTest() { std::ofstream(model.movieURL()) << "frames"; }

    [[nodiscard]] std::filesystem::path file(const char* name) const {
        return folder.path() / name;
    }

    std::vector<std::string> opened;
    std::string copied;
    bool hasProgram = true;
    int reviews = 0;
    ui::PreviewViewController preview{
        services,
        "poster",
        {.open =
             [this](const QUrl& what) {
                 opened.push_back(what.toLocalFile().toStdString());
                 return hasProgram;
             },
         .copyText = [this](const QString& text) { copied = text.toStdString(); },
         .requestReview = [this] { ++reviews; }}};
};

TEST_F(PreviewTest, SharesTheCopyThatStaysWithTheUser) {
    const std::filesystem::path copy = file("videos/Zelvo Movie 2.mov");
    preview.openInPlayer();
    preview.setSavedCopy(copy);
    preview.togglePlaying();
    preview.share();
    preview.openInPlayer();
    EXPECT_FALSE(preview.isPlaying()) << "the other player plays now";
    EXPECT_FALSE(preview.isSharing());
    preview.openFolder();
    EXPECT_THAT(
        opened,
        testing::ElementsAre(
            model.movieURL().string(), copy.string(), copy.parent_path().string()));
    preview.share();
    preview.copyPath();
    EXPECT_EQ(copied, copy.string());
    EXPECT_FALSE(preview.isSharing());
    EXPECT_FALSE(alerts.isShowing());

    hasProgram = false;
    preview.openFolder();
    EXPECT_TRUE(alerts.message().contains(QString::fromStdString(copy.parent_path().string())));
}

TEST_F(PreviewTest, SavesACopyOrSaysWhyNot) {
    std::ofstream(file("mine.mov")) << "something longer that was there before";
    preview.saveCopy(QUrl::fromLocalFile(QString::fromStdString(file("mine.mov").string())));
    loop().drain();
    std::ostringstream text;
    text << std::ifstream(file("mine.mov")).rdbuf();
    EXPECT_EQ(text.str(), "frames");
    EXPECT_EQ(preview.place().toStdString(), file("mine.mov").string());
    EXPECT_FALSE(alerts.isShowing());

    const auto suggested = [this] { return preview.suggestedCopy().toLocalFile().toStdString(); };
    EXPECT_EQ(suggested(), file("videos/Zelvo Movie.mov").string());
    std::filesystem::create_directories(file("videos"));
    std::ofstream(file("videos/Zelvo Movie.mov")) << "of an earlier export";
    EXPECT_EQ(suggested(), file("videos/Zelvo Movie 2.mov").string());

    preview.saveCopy(QUrl());
    loop().drain();
    EXPECT_FALSE(alerts.isShowing()) << "the user chose no file";
    preview.saveCopy(QUrl::fromLocalFile(QString::fromStdString(file("no/such/x.mov").string())));
    loop().drain();
    EXPECT_EQ(alerts.title(), "Error");
    EXPECT_TRUE(alerts.message().contains("x.mov"));
    EXPECT_EQ(preview.place().toStdString(), file("mine.mov").string());
}

TEST_F(PreviewTest, DoesNotPlayByItselfNorWhatCannotBePlayed) {
    EXPECT_FALSE(preview.isPlaying());
    preview.togglePlaying();
    EXPECT_TRUE(preview.isPlaying());
    preview.playbackFailed("no decoder for this");
    EXPECT_FALSE(preview.isPlaying());
    EXPECT_TRUE(preview.failure().contains("no decoder for this"));
    EXPECT_TRUE(preview.failure().contains("Share"));
    preview.togglePlaying();
    EXPECT_FALSE(preview.isPlaying());

    std::filesystem::remove(model.movieURL());
    preview.playbackFailed("not found");
    EXPECT_FALSE(preview.failure().contains("Share")) << "there is nothing to share";
}

TEST_F(PreviewTest, AsksForAReviewOnceTheScreenHasGone) {
    bool isGone = false;
    QObject::connect(&preview, &ui::PreviewViewController::dismissed, [&] { isGone = true; });
    preview.togglePlaying();
    preview.dismissController();
    EXPECT_TRUE(isGone);
    EXPECT_FALSE(preview.isPlaying());
    loop().runFor(0.009);
    EXPECT_EQ(reviews, 0);
    loop().runFor(0.002);
    EXPECT_EQ(reviews, 1);
}

/// A frame of 4 x 2 pixels in one colour, as a player makes it.
QVideoFrame pictureOf(
    std::array<int, 3> yuv,
    QVideoFrameFormat::PixelFormat layout,
    QVideoFrameFormat::ColorSpace space = QVideoFrameFormat::ColorSpace_BT709) {
    QVideoFrameFormat format({4, 2}, layout);
    format.setColorSpace(space);
    QVideoFrame frame(format);
    frame.map(QVideoFrame::WriteOnly);
    for (int plane = 0; plane < frame.planeCount(); ++plane) {
        for (int i = 0; i < frame.mappedBytes(plane); ++i) {
            const bool isSecondOfTwo = frame.planeCount() == 2 && plane == 1 && i % 2 == 1;
            frame.bits(plane)[i] = static_cast<uchar>(
                yuv.at(static_cast<std::size_t>(plane) + (isSecondOfTwo ? 1 : 0)));
        }
    }
    frame.unmap();
    return frame;
}

TEST_F(PreviewTest, TheColourBarsOfTheStandardComeOutAsTheyAre) {
    struct Bar {
        std::array<int, 3> yuv; // 8 bits, BT.709
        std::array<int, 3> rgb;
    };

    for (const auto layout : {QVideoFrameFormat::Format_YUV420P, QVideoFrameFormat::Format_NV12}) {
        for (const Bar& bar : {
                 Bar{{235, 128, 128}, {255, 255, 255}},
                 Bar{{219, 16, 138}, {255, 255, 0}},
                 Bar{{188, 154, 16}, {0, 255, 255}},
                 Bar{{173, 42, 26}, {0, 255, 0}},
                 Bar{{78, 214, 230}, {255, 0, 255}},
                 Bar{{63, 102, 240}, {255, 0, 0}},
                 Bar{{32, 240, 118}, {0, 0, 255}},
                 Bar{{16, 128, 128}, {0, 0, 0}},
             }) {
            QVideoFrame shown = ui::withTrueColors(pictureOf(bar.yuv, layout));
            ASSERT_TRUE(shown.map(QVideoFrame::ReadOnly));
            const int lastPixel = shown.bytesPerLine(0) + 4 * 3;
            for (int c = 0; c < 3; ++c) {
                EXPECT_NEAR(
                    shown.bits(0)[lastPixel + c], bar.rgb.at(static_cast<std::size_t>(c)), 3);
            }
        }
    }
    const QVideoFrame foreign = pictureOf(
        {63, 102, 240}, QVideoFrameFormat::Format_YUV420P, QVideoFrameFormat::ColorSpace_BT601);
    EXPECT_EQ(ui::withTrueColors(foreign), foreign) << "Qt converts other colour spaces itself";
}

TEST_F(PreviewTest, NoPictureIsHandedToAScreenThatWent) {
    ui::TrueColorSink colors;
    std::atomic<bool> isOver = false;
    std::atomic<int> passed = 0;
    std::thread player([&] {
        QVideoFrameFormat format({640, 360}, QVideoFrameFormat::Format_YUV420P);
        format.setColorSpace(QVideoFrameFormat::ColorSpace_BT709);
        while (!isOver) {
            colors.setVideoFrame(QVideoFrame(format));
            ++passed;
        }
    });
    std::atomic<int> late = 0;
    for (int screens = 0; screens < 100; ++screens) {
        std::atomic<bool> hasGone = false;
        const int before = passed;
        QVideoSink target;
        QObject::connect(
            &target,
            &QVideoSink::videoFrameChanged,
            &target,
            [&] { late += hasGone ? 1 : 0; },
            Qt::DirectConnection);
        colors.setTarget(&target);
        while (passed < before + 1)
            std::this_thread::yield();
        colors.setTarget(nullptr);
        hasGone = true;
        while (passed < before + 3)
            std::this_thread::yield();
    }
    isOver = true;
    player.join();
    EXPECT_EQ(late, 0);
}

} // namespace

} // namespace zelvo::test
