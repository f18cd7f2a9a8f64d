// SPDX-License-Identifier: MIT
#include "content/VideoNodePlayer.h"

#include <algorithm>
#include <utility>

namespace zelvo::content {

using media::AVPlayer;

VideoNodePlayer::Screen VideoNodePlayer::makeScreen(const AVPlayer& player, double longSide) {
    const media::VideoFormat& format = player.format();
    const double scale = longSide / std::max(format.width, format.height);
    Screen screen{
        std::make_shared<node::DefaultSCNNode>(),
        std::make_shared<scene::SCNPlane>(format.width * scale, format.height * scale),
        std::make_shared<scene::SCNMaterial>()};
    screen.material->lightingModelName = scene::SCNLightingModel::constant;
    screen.material->isDoubleSided = true;
    screen.plane->materials = {screen.material};
    screen.node->geometry = screen.plane;
    return screen;
}

VideoNodePlayer::VideoNodePlayer(std::shared_ptr<AVPlayer> video, const Screen& screen)
    : plane(screen.plane)
    , videoNode(screen.node)
    , player(std::move(video))
    , videoSize{double(player->format().width), double(player->format().height)}
    , material(screen.material)
    , blendMode(material->blendMode) {
    stop();
}

void VideoNodePlayer::play(double sceneTime) {
    player->seek(media::CMTime{});
    start = sceneTime;
    isPlaying = true;
    videoNode->isHidden = false;
}

void VideoNodePlayer::stop() {
    isPlaying = false;
    videoNode->isHidden = false;
    player->seek(media::CMTime{});
    show(player->picture(AVPlayer::Patience::takesNearest));
    tellChange();
}

void VideoNodePlayer::updateAtTime(double sceneTime, AVPlayer::Patience patience) {
    material->blendMode = blendMode;
    if (!isPlaying) // a pause; it goes on where it is
        start = sceneTime - player->currentTime();
    else if (const double time = sceneTime - start; time < player->format().duration)
        player->seek(time);
    else
        playerItemDidReachEnd();
    show(player->picture(patience));
    tellChange();
}

void VideoNodePlayer::playerItemDidReachEnd() {
    isPlaying = false;
    if (hidesWhenStopped)
        videoNode->isHidden = true;
    player->seek(media::CMTime{});
}

void VideoNodePlayer::show(const image::ImagePtr& picture) const {
    material->diffuse.setImage(picture);
}

void VideoNodePlayer::tellChange() {
    if (std::exchange(wasPlaying, isPlaying) != isPlaying && delegate != nullptr)
        delegate->videoNodePlayerDidChange(*this);
}

} // namespace zelvo::content
