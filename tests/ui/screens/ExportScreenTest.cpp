// SPDX-License-Identifier: MIT
#include "media/MovieFixture.h"
#include "ui/UiFixture.h"
#include "ui/screens/ExportViewController.h"

#include <QGuiApplication>

#include <memory>

namespace zelvo::test {

namespace {

using ui::BlurCover;
using ui::ExportViewController;

class ExportScreenTest : public UiTest {
protected:
    ExportScreenTest() { model.setDuration(2); }

    void open() {
        cover.show();
        screen = std::make_unique<ExportViewController>(services, cover, ui::Sharing{});
        QObject::connect(screen.get(), &ExportViewController::dismissed, [this] { ++dismissals; });
    }

    /// Runs the export until it has reached the percentage.
    void runToPercent(int percent) {
        ASSERT_TRUE(loop().runUntil([&] { return screen->currentPerc >= percent; }));
    }

    void runToOutcome() {
        const foundation::Timer waiting = loop().expectPosts();
        ASSERT_TRUE(loop().runUntil([this] { return outcome.has_value(); }));
        loop().drain();
    }

    [[nodiscard]] double ring() const {
        return screen->progressView()->property("currentProgress").toDouble();
    }

    BlurCover cover{world.runLoop};
    std::unique_ptr<ExportViewController> screen;
    int dismissals = 0;
};

TEST_F(ExportScreenTest, RingAndPercentageRiseToTheEndAndThePreviewFollows) {
    open();
    loop().runFor(0.29);
    EXPECT_FALSE(model.isRecordingMovie()) << "the screen appears first";
    int highest = 0;
    double fullest = 0;
    QStringList told;
    QObject::connect(
        screen.get(), &ExportViewController::statusChanged, [&] { told.append(screen->status()); });
    onTime([&](const ui::TimeState&) {
        EXPECT_GE(screen->currentPerc, highest);
        EXPECT_GE(ring(), fullest);
        highest = screen->currentPerc;
        fullest = ring();
    });
    runToPercent(1); // the count-in is a part of it
    EXPECT_EQ(screen->progressLabel(), "1 %");
    EXPECT_EQ(screen->preview(), nullptr);
    runToOutcome();

    ASSERT_TRUE(*outcome) << outcome->error().message;
    EXPECT_EQ(told, QStringList({"Recording the movie", "Saving the movie"}));
    EXPECT_GE(screen->currentPerc, 99);
    EXPECT_NEAR(ring(), 1, 0.01);
    ASSERT_NE(screen->preview(), nullptr);
    EXPECT_EQ(screen->preview()->moviePath, model.movieURL());
    EXPECT_EQ(screen->preview()->place().toStdString(), (*outcome)->savedCopy->string());
    EXPECT_TRUE(screen->preview()->poster.startsWith("data:image/jpeg;base64,"));
    loop().runFor(0.1);
    EXPECT_FALSE(cover.isPresent());
    EXPECT_EQ(dismissals, 0);
    screen->preview()->dismissController();
    EXPECT_EQ(dismissals, 1);
}

TEST_F(ExportScreenTest, TellsTheTimeLeftByThatOfTheFramesSoFar) {
    rendering.drawMs = 1000;
    open();
    QStringList told;
    QObject::connect(screen.get(), &ExportViewController::timeLeftChanged, [&] {
        told.append(screen->timeLeft());
    });
    runToOutcome();
    ASSERT_GT(told.size(), 100);
    // 121 frames are drawn, two ahead of those that are done: the tenth comes at 11 or 12 seconds.
    EXPECT_TRUE(told.front() == "2:03 left" || told.front() == "2:14 left")
        << told.front().toStdString();
    EXPECT_TRUE(told.contains("1:00 left"));
    EXPECT_EQ(told.back(), "") << "at the end there is nothing to tell";
}

TEST_F(ExportScreenTest, ClosingHalfwayCancels) {
    open();
    runToPercent(50);
    screen->dismissViewController();
    screen->dismissViewController();
    EXPECT_EQ(dismissals, 1);
    EXPECT_FALSE(model.isRecordingMovie());
    ASSERT_TRUE(outcome.has_value());
    EXPECT_EQ(outcome->error().cause, foundation::Cause::cancelled);
    loop().runFor(5);
    EXPECT_EQ(screen->preview(), nullptr);
    EXPECT_FALSE(cover.isPresent());
}

TEST_F(ExportScreenTest, ClosingWhileTheMovieIsPutTogetherDoesNotLoseIt) {
    open();
    const foundation::Timer waiting = loop().expectPosts();
    ASSERT_TRUE(loop().runUntil(
        [this] { return model.movieWriter().state() == movie::MovieWriter::State::closing; }));
    screen->dismissViewController();
    runToOutcome();
    ASSERT_TRUE(*outcome) << outcome->error().message;
    EXPECT_TRUE((*outcome)->savedCopy.has_value());
    EXPECT_EQ(screen->preview(), nullptr) << "its screen is closed";
}

TEST_F(ExportScreenTest, NothingIsMadeOfAScreenThatGoesAtOnce) {
    open();
    screen->dismissViewController();
    loop().runFor(1);
    EXPECT_FALSE(model.isRecordingMovie());

    open();
    screen.reset();
    loop().runFor(1);
    EXPECT_FALSE(model.isRecordingMovie());
    EXPECT_FALSE(cover.isPresent()) << "the cover goes with the screen";
}

TEST_F(ExportScreenTest, OnlySleepEndsAnExportNotLookingAway) {
    open();
    runToPercent(20);
    Q_EMIT qApp->applicationStateChanged(Qt::ApplicationInactive);
    Q_EMIT qApp->applicationStateChanged(Qt::ApplicationHidden);
    EXPECT_TRUE(model.isRecordingMovie());
    Q_EMIT qApp->applicationStateChanged(Qt::ApplicationSuspended);
    EXPECT_FALSE(model.isRecordingMovie());
    EXPECT_EQ(dismissals, 1);
}

TEST_F(ExportScreenTest, WhatCannotBeginIsSaidAndTheScreenStays) {
    ASSERT_TRUE(model.startMovie()); // another export is running
    open();
    loop().runFor(0.3);
    EXPECT_EQ(alerts.title(), "Error");
    EXPECT_TRUE(alerts.message().contains("a movie is being made"));
    EXPECT_EQ(dismissals, 0);
}

TEST_F(ExportScreenTest, AFailureIsSaidOnTheScreen) {
    const media::FileSizeLimit limit(100); // bytes of each file: as on a full disk
    open();
    runToOutcome();
    EXPECT_FALSE(*outcome);
    EXPECT_EQ(screen->status(), "The movie could not be made");
    EXPECT_EQ(dismissals, 0);
}

TEST_F(ExportScreenTest, TheCoverIsOneAndFadesBeforeItGoes) {
    cover.show();
    EXPECT_EQ(cover.alpha(), 1);
    cover.hide();
    EXPECT_EQ(cover.alpha(), 0);
    loop().runFor(0.05);
    EXPECT_TRUE(cover.isPresent());
    cover.show(); // the first one is still fading
    EXPECT_EQ(cover.alpha(), 0);
    loop().runFor(0.05);
    EXPECT_FALSE(cover.isPresent());
    cover.show();
    EXPECT_TRUE(cover.isPresent());
}

} // namespace

} // namespace zelvo::test
