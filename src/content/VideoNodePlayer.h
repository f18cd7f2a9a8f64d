// SPDX-License-Identifier: MIT
#pragma once

#include "node/DefaultSCNNode.h"
#include "platform/media/AVPlayer.h"
#include "platform/scene/SCNMaterial.h"
#include "platform/scene/SCNShapes.h"

#include <memory>

namespace zelvo::content {

class VideoNodePlayer;

/// Told of the state of a video.
class VideoNodePlayerDelegate {
public:
    virtual ~VideoNodePlayerDelegate() = default;
    /// It has begun to play, was paused or has ended.
    virtual void videoNodePlayerDidChange(VideoNodePlayer& video) = 0;
};

/// Width and height of a video's pictures as shown, in pixels.
struct CGSize {
    double width = 0;
    double height = 0;
};

/// A video on a plane in the scene. It plays on the scene's time: its owner calls `updateAtTime` in
/// each frame, in a live run as in an export. At its end it goes back to its first picture and stays
/// there; it does not begin again.
///
///     play(t) ──> playing ──end──> first picture, hidden if hidesWhenStopped
///        └────────── stop ───────> first picture, shown
class VideoNodePlayer {
public:
    /// What a video is shown on.
    struct Screen {
        node::DefaultSCNNodePtr node;
        std::shared_ptr<scene::SCNPlane> plane; ///< may be null
        scene::SCNMaterialPtr material;
    };

    /// A plane of its own, unlit, with the proportions of the video. `longSide` in scene units.
    [[nodiscard]] static Screen makeScreen(const media::AVPlayer& player, double longSide);

    VideoNodePlayer(std::shared_ptr<media::AVPlayer> video, const Screen& screen);

    bool isPlaying = false; ///< set it to false for a pause, to true to go on
    bool hidesWhenStopped = false;
    const std::shared_ptr<scene::SCNPlane> plane; ///< may be null
    VideoNodePlayerDelegate* delegate = nullptr;  ///< not owned; may be null
    const node::DefaultSCNNodePtr videoNode;
    std::shared_ptr<media::AVPlayer> player;
    const CGSize videoSize;
    const scene::SCNMaterialPtr material;
    scene::SCNBlendMode blendMode; ///< takes effect with the next update

    /// Begins the video: its first picture is on show at this time of the scene.
    void play(double sceneTime);
    /// Ends the video and shows its first picture.
    void stop();
    /// Shows the picture of this time of the scene.
    void updateAtTime(double sceneTime, media::AVPlayer::Patience patience);

    void playerItemDidReachEnd();

private:
    void show(const image::ImagePtr& picture) const;
    void tellChange();

    double start = 0; ///< scene time of the first picture
    bool wasPlaying = false;
};

} // namespace zelvo::content
