// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/VideoSettings.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string_view>

namespace zelvo::media {

/// The kinds of movie files that can be written.
enum class Container { quickTime, mpeg4, webm };

struct ContainerInfo {
    Container container;
    std::string_view name;   ///< as users write it; also the name of FFmpeg's writer
    std::string_view ending; ///< of file names, with its dot
    /// Of a movie with alpha; nothing if the container has no codec with alpha that players take.
    std::optional<VideoCodec> alphaCodec;
};

// clang-format off
inline constexpr auto kContainers = std::to_array<ContainerInfo>({
    {Container::quickTime, "mov",  ".mov",  VideoCodec::proRes4444},
    {Container::mpeg4,     "mp4",  ".mp4",  std::nullopt          },
    {Container::webm,      "webm", ".webm", VideoCodec::vp9       },
});
// clang-format on

[[nodiscard]] const ContainerInfo& infoOf(Container container);

/// By the ending of the name, in any case of letters. Nothing if the ending is another one.
[[nodiscard]] std::optional<Container> knownContainerOf(const std::filesystem::path& file);

/// The same; QuickTime for any other ending.
[[nodiscard]] Container containerOf(const std::filesystem::path& file);

/// Whether the container can hold such a movie. A codec can only be wanted for opaque movies in
/// QuickTime and MP4 files. Error: `unsupported`.
[[nodiscard]] foundation::Result<void>
checkMovie(Container container, Alpha alpha, std::optional<VideoCodec> wanted);

/// The codec of a movie. If none is wanted for an opaque QuickTime or MP4 file, it is HEVC if the
/// machine encodes that in hardware, otherwise H.264. Errors: those of checkMovie.
[[nodiscard]] foundation::Result<VideoCodec>
codecFor(Container container, Alpha alpha, std::optional<VideoCodec> wanted);

} // namespace zelvo::media
