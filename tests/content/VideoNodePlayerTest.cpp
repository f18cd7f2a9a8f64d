// SPDX-License-Identifier: MIT
#include "content/ImageVideo.h"
#include "media/VideoFixture.h"
#include "support/TemporaryFolder.h"
#include "support/TestWorld.h"

#include <gtest/gtest.h>

#include <vector>

namespace zelvo::content {
namespace {

using media::AVPlayer;
using media::makeVideo;
using media::numberIn;

class VideoNodePlayerTest : public testing::Test, protected VideoNodePlayerDelegate {
protected:
    VideoNodePlayerTest() {
        makeVideo(folder.path() / "clip.mp4", {.frames = 12});
        player = *AVPlayer::open(folder.path() / "clip.mp4");
    }

    void videoNodePlayerDidChange(VideoNodePlayer& video) override {
        states.push_back(video.isPlaying);
    }

    test::TemporaryFolder folder;
    std::shared_ptr<AVPlayer> player;
    std::vector<bool> states;
};

TEST_F(VideoNodePlayerTest, PlaysOnceOnTheScenesTimeAndStandsReadyAfterwards) {
    VideoNodePlayer video(player, VideoNodePlayer::makeScreen(*player, 40));
    video.delegate = this;
    video.blendMode = scene::SCNBlendMode::add;
    EXPECT_DOUBLE_EQ(video.plane->height(), 24);
    const auto numberAt = [&](double time) {
        video.updateAtTime(time, AVPlayer::Patience::waits);
        return numberIn(*video.material->diffuse.image());
    };
    for (const bool hides : {true, false}) {
        video.hidesWhenStopped = hides;
        video.play(100);
        EXPECT_FALSE(video.videoNode->isHidden);
        EXPECT_EQ(numberAt(100), 0);
        EXPECT_EQ(numberAt(100.25), 7);
        EXPECT_EQ(numberAt(100.5), 0);
        EXPECT_EQ(video.videoNode->isHidden, hides);
        EXPECT_EQ(numberAt(100.6), 0) << "it does not begin again";
    }
    EXPECT_EQ(states, (std::vector<bool>{true, false, true, false}));
    EXPECT_EQ(video.material->blendMode, scene::SCNBlendMode::add);
}

TEST_F(VideoNodePlayerTest, TheImageNodeShowsItLikeAPicture) {
    test::TestWorld world;
    const ImageNodePtr node = ImageNode::make({0, 0, 0}, 1, world.surroundings());
    setVideo(*node, player);
    EXPECT_DOUBLE_EQ(node->plane->height(), 355 * 0.6);
    videoOf(*node)->play(0);
    videoOf(*node)->updateAtTime(0.2, AVPlayer::Patience::waits);
    node->setCurrentMask(imageMasks()[3]);
    node->hFlipped = true;
    node->updateContent();
    EXPECT_EQ(numberIn(*node->material->diffuse.image()), 6) << "it goes on under another mask";
    EXPECT_EQ(node->material->diffuse.contentsTransform[0][0], -1);
    videoOf(*node)->hidesWhenStopped = true;
    videoOf(*node)->updateAtTime(9, AVPlayer::Patience::waits);
    ASSERT_TRUE(node->imageNode->isHidden);
    node->setImage(nullptr);
    EXPECT_FALSE(node->imageNode->isHidden);
    EXPECT_TRUE(node->material->diffuse.isEmpty());
}

} // namespace
} // namespace zelvo::content
