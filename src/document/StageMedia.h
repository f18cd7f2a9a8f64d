// SPDX-License-Identifier: MIT
#pragma once

#include "document/Performance.h"
#include "document/StylePaths.h"
#include "platform/foundation/Json.h"
#include "platform/image/Image.h"
#include "platform/media/AVPlayer.h"
#include "platform/scene/SCNReferenceNode.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace zelvo::document {

/// What a style names by its path, and what takes time to read.
struct StageMedia {
    image::ImagePtr picture;
    std::shared_ptr<media::AVPlayer> video;
    std::optional<scene::ReadObject> object;
    /// What cannot be read, with its line in the file; the message begins with the path.
    std::vector<foundation::Problem> missing;
};

/// Reads the pictures and objects of a resolved style. Any thread.
[[nodiscard]] StageMedia readMedia(const Style& style);

} // namespace zelvo::document
