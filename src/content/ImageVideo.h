// SPDX-License-Identifier: MIT
#pragma once

#include "content/ImageNode.h"
#include "content/VideoNodePlayer.h"

#include <memory>

namespace zelvo::content {

/// The node with the image node's plane. It owns the video that plays on it.
class ImagePlane final : public node::ReferNode {
public:
    std::unique_ptr<VideoNodePlayer> video; ///< null: the plane shows a picture
};

/// The video of the image node; null if it shows a picture.
[[nodiscard]] VideoNodePlayer* videoOf(const ImageNode& node);

/// Puts a video on the image node in place of its picture: masks and mirroring work as with a
/// picture. It stands on its first picture, which is also the node's `image`. `setImage` ends it.
void setVideo(ImageNode& node, std::shared_ptr<media::AVPlayer> player);

/// Removes the video, if there is one. The node needs a new picture then.
void endVideo(const ImageNode& node);

} // namespace zelvo::content
