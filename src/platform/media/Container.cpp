// SPDX-License-Identifier: MIT
#include "platform/media/Container.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace zelvo::media {

using foundation::Cause;
using foundation::fail;

const ContainerInfo& infoOf(Container container) {
    return *std::ranges::find(kContainers, container, &ContainerInfo::container);
}

std::optional<Container> knownContainerOf(const std::filesystem::path& file) {
    std::string ending = file.extension().string();
    std::ranges::transform(ending, ending.begin(), [](unsigned char letter) {
        return static_cast<char>(std::tolower(letter));
    });
    const auto* const row = std::ranges::find(kContainers, ending, &ContainerInfo::ending);
    return row == kContainers.end() ? std::nullopt : std::optional(row->container);
}

Container containerOf(const std::filesystem::path& file) {
    return knownContainerOf(file).value_or(Container::quickTime);
}

foundation::Result<void>
checkMovie(Container container, Alpha alpha, std::optional<VideoCodec> wanted) {
    if (wanted && (alpha == Alpha::straight || container == Container::webm)) {
        return fail(
            Cause::unsupported,
            "The codec can only be chosen for QuickTime and MP4 movies without alpha.");
    }
    if (alpha == Alpha::straight && !infoOf(container).alphaCodec) {
        return fail(
            Cause::unsupported,
            "An MP4 movie cannot have alpha. Choose a QuickTime (.mov) or a WebM (.webm) movie.");
    }
    return {};
}

foundation::Result<VideoCodec>
codecFor(Container container, Alpha alpha, std::optional<VideoCodec> wanted) {
    if (auto checked = checkMovie(container, alpha, wanted); !checked)
        return tl::unexpected(checked.error());
    if (alpha == Alpha::straight)
        return *infoOf(container).alphaCodec;
    if (container == Container::webm)
        return VideoCodec::vp9;
    return wanted.value_or(
        hasHardwareEncoder(VideoCodec::hevc) ? VideoCodec::hevc : VideoCodec::h264);
}

} // namespace zelvo::media
