// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/FFmpeg.h"

#include <filesystem>

namespace zelvo::media {

/// Opens a foreign sound or movie file for reading and finds its streams, within limits: a regular
/// file of up to 8 GiB in a format that refers to no other file, up to 32 streams. Errors say what
/// the file lacks.
[[nodiscard]] foundation::Result<FFmpegPtr<AVFormatContext>>
openMediaFile(const std::filesystem::path& path);

/// The next packet, of whichever stream; false at the end, and where 64 MiB of the file hold none: a
/// damaged file must not be gathered in memory.
[[nodiscard]] bool readPacket(AVFormatContext& format, AVPacket& packet);

/// Lets the demuxer skip every stream but this one (-1 for none).
void readOnlyStream(AVFormatContext& format, int stream);

} // namespace zelvo::media
