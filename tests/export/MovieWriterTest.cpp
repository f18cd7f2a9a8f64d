// SPDX-License-Identifier: MIT
#include "export/MovieWriterFixture.h"
#include "media/MovieFixture.h"

#include <gmock/gmock.h>

#include <thread>

namespace zelvo::movie {
namespace {

using foundation::Cause;
using testing::ElementsAre;
using testing::Pair;

class MovieWriterTest : public test::MovieWriterTest {};

TEST_F(MovieWriterTest, MakesAMovieOfEveryFrameButTheLastThree) {
    length = 24; // after about 20 s, added-up steps would fall below sixtieths
    const int drawn = 24 * 60 + 1;
    std::vector<int> progress;
    writer.progressSignal.subscribe(listening, [&](const MovieProgress& state) {
        EXPECT_EQ(state.framesTotal, drawn);
        progress.push_back(state.framesDone);
    });
    std::vector<int> greys; // of the frames, as a tap gets them
    writer.options.tap = FrameTap{
        .wants = [](int frame) { return frame >= 0; },
        .take = [&](int frame, const render::FrameView& picture) -> foundation::Result<void> {
            EXPECT_EQ(frame, static_cast<int>(greys.size()));
            greys.push_back(picture.bytes[0]);
            return {};
        }};
    exportMovie();
    ASSERT_TRUE(*outcome) << outcome->error().message;
    EXPECT_EQ((*outcome)->frames, drawn);
    EXPECT_EQ(rendering.drawn.size(), drawn) << "the count-in is not drawn";
    EXPECT_EQ(rendering.drawn[0], 0);
    EXPECT_EQ(rendering.mostInFlight, 2) << "drawing and reading back overlap";
    EXPECT_EQ(progress.back(), drawn);
    EXPECT_EQ(sceneHome, SceneHome::screen);
    EXPECT_EQ(videosShown, 1);

    const auto made = media::decodeMovie((*outcome)->movie, 32, 18);
    ASSERT_EQ(made.frameTimes.size(), drawn - 3);
    EXPECT_EQ(made.videoTag, "avc1");
    EXPECT_EQ(made.audioCodec, "") << "there was no music";
    for (std::size_t n = 0; n < made.frameTimes.size(); ++n) {
        EXPECT_NEAR(made.frameTimes[n], static_cast<double>(n) / 60, 1e-9);
        // The full-range grey as video range, with a small loss.
        EXPECT_NEAR(made.centres[n][0], 16 + greys[n] * 219.0 / 255, 2) << n;
    }
    EXPECT_THAT(media::topAtoms((*outcome)->movie), testing::Contains("moov"));
    EXPECT_THAT(filesIn(folders.documents / "Folder"), ElementsAre("Movie.mov"));
}

TEST_F(MovieWriterTest, CancelsAtAnyMomentAndStartsAgain) {
    writeEarlierMovie();
    ASSERT_TRUE(writer.start());
    EXPECT_EQ(sceneHome, SceneHome::movieRenderer);
    EXPECT_EQ(writer.start().error().cause, Cause::unsupported) << "one at a time";
    for (const double moment :
         {0.05, 0.15, 1.0, 3.0}) { // before the run, count-in, rendering, closing
        SCOPED_TRACE(moment);
        outcome.reset();
        if (!writer.isRecording()) {
            ASSERT_TRUE(writer.start());
        }
        loop.runFor(moment);
        writer.cancel();
        ASSERT_TRUE(outcome.has_value());
        EXPECT_EQ(outcome->error().cause, Cause::cancelled);
        EXPECT_EQ(writer.state(), MovieWriter::State::idle);
        EXPECT_EQ(sceneHome, SceneHome::screen);
        EXPECT_TRUE(hasEarlierMovie());
        EXPECT_THAT(filesIn(folders.documents / "Folder"), ElementsAre("Movie.mov"));
    }
    EXPECT_TRUE(alerts.empty()) << "a cancel needs no message";
    exportMovie();
    ASSERT_TRUE(*outcome);
    EXPECT_EQ(media::decodeMovie(writer.movieURL(), 32, 18).frameTimes.size(), 118U);
}

TEST_F(MovieWriterTest, IsDoneWhereACancelComesTooLate) {
    writeEarlierMovie();
    ASSERT_TRUE(writer.start());
    const foundation::Timer waiting = loop.expectPosts();
    ASSERT_TRUE(loop.runUntil([this] { return isMuxing; }));
    while (hasEarlierMovie())
        std::this_thread::yield();
    writer.cancel();
    ASSERT_TRUE(outcome && *outcome);
    EXPECT_EQ((*outcome)->savedCopy, folders.videos / "Zelvo Movie.mov");
    EXPECT_EQ(videosShown, 1);
}

TEST_F(MovieWriterTest, IsNotDisturbedByAnotherWindow) {
    ASSERT_TRUE(writer.start());
    loop.runFor(1);
    MovieWriter other(
        *this, folders, [this] { return std::make_unique<test::FakeFrames>(rendering); });
    const foundation::Timer clock = std::exchange(ticks, {}); // `other` stops the timer in ticks
    other.options.renderSize = {64, 36};
    EXPECT_NE(other.movieURL(), writer.movieURL()) << "they may finish at the same moment";
    ASSERT_TRUE(other.start());
    other.cancel();
    waitForOutcome();
    ASSERT_TRUE(*outcome) << outcome->error().message;
    EXPECT_EQ((*outcome)->movie, folders.documents / "Folder/Movie.mov");
}

TEST_F(MovieWriterTest, KeepsTheRawMovieWhenOnlyTheLastStepFails) {
    std::filesystem::create_directory(folder.path() / "out");
    writer.options.output = folder.path() / "out/a.mov";
    ASSERT_TRUE(writer.start());
    loop.runFor(1);
    std::filesystem::remove(folder.path() / "out");
    waitForOutcome();
    ASSERT_FALSE(*outcome);
    const std::string& told = outcome->error().message;
    const auto place = told.find("kept at ") + 8;
    const auto kept = told.substr(place, told.rfind('.') - place);
    const MovieWriter next(*this, folders, {});
    EXPECT_EQ(media::decodeMovie(kept, 32, 18).frameTimes.size(), 121U) << told;
}

TEST_F(MovieWriterTest, PutsTheMovieIntoTheLibrary) {
    exportMovie();
    exportMovie();
    EXPECT_THAT(filesIn(folders.videos), ElementsAre("Zelvo Movie 2.mov", "Zelvo Movie.mov"));
    EXPECT_EQ((*outcome)->savedCopy, folders.videos / "Zelvo Movie 2.mov");
    EXPECT_EQ(
        media::readBytes(folders.videos / "Zelvo Movie 2.mov"),
        media::readBytes(writer.movieURL()));
    ASSERT_EQ(alerts.size(), 2U);
    EXPECT_THAT(alerts[1], Pair("Movie successfully saved to your Photo Library.", ""));
}

TEST_F(MovieWriterTest, KeepsTheMovieWhenTheLibraryIsDenied) {
    std::filesystem::create_directories(folders.videos.parent_path());
    std::ofstream(folders.videos) << "a file stands where the folder should be";
    exportMovie();
    ASSERT_TRUE(*outcome);
    EXPECT_FALSE((*outcome)->savedCopy);
    EXPECT_NE((*outcome)->saveFailure, "");
    EXPECT_TRUE(std::filesystem::exists(writer.movieURL()));
    EXPECT_EQ(videosShown, 1);
    EXPECT_THAT(
        alerts,
        ElementsAre(Pair(
            "Access denied",
            "The app needs your approval to access photo library. Please "
            "enable it in Settings.")));
}

TEST_F(MovieWriterTest, LeavesTheEarlierMovieWhenTheDiskIsFull) {
    writeEarlierMovie();
    length = 4;
    for (const rlim_t bytes : {100U, 4000U}) { // fails while frames are written; later
        SCOPED_TRACE(bytes);
        alerts.clear();
        const media::FileSizeLimit limit(bytes);
        exportMovie();
        ASSERT_FALSE(*outcome);
        EXPECT_EQ(outcome->error().cause, Cause::unwritable);
        EXPECT_THAT(alerts, ElementsAre(Pair("Error", outcome->error().message)));
        EXPECT_EQ(writer.state(), MovieWriter::State::idle);
        EXPECT_EQ(sceneHome, SceneHome::screen);
        EXPECT_TRUE(hasEarlierMovie());
        EXPECT_THAT(filesIn(folders.documents / "Folder"), ElementsAre("Movie.mov"));
    }
}

TEST_F(MovieWriterTest, RefusesWhatCannotBegin) {
    for (const auto& output : {folder.path() / "missing/out.mov", folder.path()}) {
        writer.options.output = output;
        EXPECT_EQ(writer.start().error().cause, Cause::unwritable) << "before the first frame";
    }
    MovieWriter blind(*this, folders, []() -> foundation::Result<std::unique_ptr<FrameSource>> {
        return foundation::fail(Cause::unavailable, "no graphics");
    });
    EXPECT_EQ(blind.start().error().message, "no graphics");
    EXPECT_EQ(blind.state(), MovieWriter::State::idle);
    writer.options.output = folder.path() / "out.mov";
    exportMovie();
    EXPECT_EQ((*outcome)->movie, folder.path() / "out.mov");
    EXPECT_TRUE(filesIn(folders.videos).empty()) << "a chosen place replaces the library";
    EXPECT_FALSE(std::filesystem::exists(writer.movieURL()));
}

TEST_F(MovieWriterTest, ShowsItsPicturesToATap) {
    std::vector<int> seen;
    MovieProgress last;
    writer.progressSignal.subscribe(listening, [&last](const MovieProgress& p) { last = p; });
    writer.options.writesMovie = false;
    writer.options.tap = FrameTap{
        .wants = [](int frame) { return frame == -3 || frame == 60; },
        .take = [&](int frame, const render::FrameView& picture) -> foundation::Result<void> {
            seen.push_back(frame);
            EXPECT_EQ(picture.bytes[0], test::FakeFrames::greyOf(frame / 60.0));
            return {};
        },
        .count = 2};
    exportMovie();
    ASSERT_TRUE(*outcome);
    EXPECT_THAT(seen, ElementsAre(-3, 60)) << "one of the count-in, too";
    EXPECT_EQ(last.framesDone, 2);
    EXPECT_EQ(last.framesTotal, 2) << "only the frames that are drawn count";
    EXPECT_EQ(rendering.drawn.size(), 2U) << "nothing else is drawn";
    EXPECT_TRUE(filesIn(folders.documents / "Folder").empty());

    writer.options.tap->take = [](int, const render::FrameView&) -> foundation::Result<void> {
        return foundation::fail(Cause::unwritable, "no room");
    };
    exportMovie();
    EXPECT_EQ(outcome->error().message, "no room");
    EXPECT_FALSE(ticks.isValid()) << "the run has ended with it";
}

} // namespace
} // namespace zelvo::movie
