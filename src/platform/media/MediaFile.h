// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/FFmpeg.h"

#include <cstdint>
#include <filesystem>

namespace zelvo::media {

/// Opens a foreign sound or movie file and finds its streams. Limits: a regular file of up to 8
/// GiB, in a format that does not refer to other files, with up to 32 streams. Errors say what is
/// wrong with the file.
[[nodiscard]] foundation::Result<FFmpegPtr<AVFormatContext>>
openMediaFile(const std::filesystem::path& path);

/// Times in foreign files are clamped to this, in seconds.
inline constexpr std::int64_t kMaxSeconds = 24LL * 60 * 60;

/// Reads the next packet of any stream. False at the end, or if 64 MiB contain no packet: a damaged
/// file must not be collected in memory.
[[nodiscard]] bool readPacket(AVFormatContext& format, AVPacket& packet);

/// Whether the file has the alpha of its VP8 or VP9 pictures in a stream beside them.
[[nodiscard]] bool hasAlphaBeside(const AVStream& stream);

/// Makes the demuxer skip all other streams (-1: all streams).
void readOnlyStream(AVFormatContext& format, int stream);

} // namespace zelvo::media
