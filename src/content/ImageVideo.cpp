// SPDX-License-Identifier: MIT
#include "content/ImageVideo.h"

#include <utility>

namespace zelvo::content {
namespace {

/// An image node makes its plane of this class.
ImagePlane& planeOf(const ImageNode& node) {
    return static_cast<ImagePlane&>(*node.imageNode);
}

} // namespace

VideoNodePlayer* videoOf(const ImageNode& node) {
    return planeOf(node).video.get();
}

void setVideo(ImageNode& node, std::shared_ptr<media::AVPlayer> player) {
    player->seek(media::CMTime{});
    node.setImage(player->picture(media::AVPlayer::Patience::takesNearest));
    // The plane owns the video, so the video must not own the plane.
    const node::DefaultSCNNodePtr plane(node::DefaultSCNNodePtr(), node.imageNode.get());
    planeOf(node).video = std::make_unique<VideoNodePlayer>(
        std::move(player), VideoNodePlayer::Screen{plane, node.plane, node.material});
}

void endVideo(const ImageNode& node) {
    if (VideoNodePlayer* const video = videoOf(node))
        video->stop(); // its end may have hidden the plane
    planeOf(node).video.reset();
}

} // namespace zelvo::content
