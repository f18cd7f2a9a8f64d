// SPDX-License-Identifier: MIT
// A video on the image node in live runs and exports.
#include "content/ImageVideo.h"
#include "media/VideoFixture.h"
#include "model/ModelFixture.h"

#include <algorithm>
#include <vector>

namespace zelvo::model {
namespace {

using media::makeVideo;
using media::numberIn;

constexpr int kFrames = 24; ///< of the video: 0.8 s, 30 a second
constexpr int kHidden = -1;
constexpr double kTicks = 0.04; ///< seconds; the timer begins a little later than the run

class VideoRunTest : public test::ModelTest {
protected:
    VideoRunTest() {
        makeVideo(folder.path() / "clip.mp4", {.frames = kFrames});
        player = *media::AVPlayer::open(folder.path() / "clip.mp4");
        setVideo(node, player);
        model.setDuration(2);
    }

    /// The number of the picture on the stage.
    [[nodiscard]] int shown() const {
        return node.imageNode->isHidden ? kHidden : numberIn(*node.material->diffuse.image());
    }

    std::vector<int> exported() {
        std::vector<int> numbers;
        rendering.onDraw = [&] { numbers.push_back(shown()); };
        exportMovie();
        rendering.onDraw = nullptr;
        return numbers;
    }

    content::ImageNode& node = *nodes.imageNode;
    std::shared_ptr<media::AVPlayer> player;
};

TEST_F(VideoRunTest, AnExportShowsEachPictureInItsFrames) {
    for (const bool hides : {false, true}) {
        videoOf(node)->hidesWhenStopped = hides;
        const std::vector<int> numbers = exported();
        ASSERT_EQ(numbers.size(), 121U);
        for (std::size_t frame = 0; frame < numbers.size(); ++frame) {
            const auto number = static_cast<int>(frame / 2);
            const int afterwards = hides ? kHidden : 0;
            ASSERT_EQ(numbers[frame], number < kFrames ? number : afterwards) << frame;
        }
        EXPECT_EQ(shown(), 0) << "at rest it shows its first picture, hidden or not before";
    }
}

TEST_F(VideoRunTest, ALiveRunAsksForTheSameTimesAsAnExport) {
    std::vector<double> live;
    onTime([&](const ui::TimeState&) {
        if (model.isPlaying())
            live.push_back(player->currentTime());
    });
    for (int replay = 0; replay < 2; ++replay) {
        live.clear();
        model.start();
        runToTheEnd();
        EXPECT_EQ(shown(), 0);
    }
    std::vector<double> drawn;
    rendering.onDraw = [&] { drawn.push_back(player->currentTime()); };
    live.clear();
    exportMovie();
    // Each signal comes before the picture of its frame is shown.
    live.erase(
        live.begin(), std::find_if(live.begin(), live.end(), [](double t) { return t > 0; }));
    drawn.erase(drawn.begin());
    drawn.resize(live.size());
    EXPECT_EQ(live, drawn);
}

TEST_F(VideoRunTest, StopsAndPausesWithTheRun) {
    model.start();
    world.runLoop.runFor(2.3);
    EXPECT_NEAR(player->currentTime(), 0.3, kTicks);
    videoOf(node)->isPlaying = false;
    world.runLoop.runFor(0.2);
    EXPECT_NEAR(player->currentTime(), 0.3, kTicks) << "a pause";
    videoOf(node)->isPlaying = true;
    world.runLoop.runFor(0.2);
    EXPECT_NEAR(player->currentTime(), 0.5, kTicks);
    model.stop(Reset::toStart);
    EXPECT_EQ(shown(), 0);
    node.setImage(std::make_shared<const image::Image>(8, 8));
    EXPECT_EQ(videoOf(node), nullptr);
    EXPECT_EQ(node.material->diffuse.image()->width, 8);
}

} // namespace
} // namespace zelvo::model
