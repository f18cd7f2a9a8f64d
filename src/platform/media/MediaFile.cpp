// SPDX-License-Identifier: MIT
#include "platform/media/MediaFile.h"

#include <system_error>

namespace zelvo::media {
namespace {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

constexpr std::uintmax_t kMaxBytes = 8ULL << 30U;

// Containers of sound and pictures. Play lists and scripts are left out: they would name other
// files to read.
constexpr const char* kFormats =
    "aac,ac3,aiff,amr,ape,asf,au,avi,caf,eac3,flac,flv,matroska,webm,mov,mp4,m4a,mp3,mpc,mpc8,mpeg,"
    "mpegts,ogg,tak,tta,voc,w64,wav,wv";

Result<void> checkFile(const std::filesystem::path& path) {
    std::error_code code;
    const auto name = path.string();
    const auto status = std::filesystem::status(path, code);
    if (!std::filesystem::exists(status))
        return fail(Cause::notFound, name + " does not exist.");
    if (!std::filesystem::is_regular_file(status)) {
        return fail(Cause::unreadable, name + " is not a file.");
    }
    const auto bytes = std::filesystem::file_size(path, code);
    if (code)
        return fail(Cause::unreadable, name + " cannot be read: " + code.message() + ".");
    if (bytes == 0)
        return fail(Cause::malformed, name + " is empty.");
    if (bytes > kMaxBytes)
        return fail(Cause::tooLarge, name + " is larger than 8 GiB.");
    return {};
}

tl::unexpected<foundation::Error> openingError(int code, const std::filesystem::path& path) {
    if (code == AVERROR(EACCES) || code == AVERROR(EIO)) {
        return fail(
            Cause::unreadable, path.string() + " cannot be read: " + describeAVError(code) + ".");
    }
    return fail(
        Cause::malformed, path.string() + " is not a sound or movie file that can be read.");
}

} // namespace

Result<FFmpegPtr<AVFormatContext>> openMediaFile(const std::filesystem::path& path) {
    silenceFFmpeg();
    if (auto checked = checkFile(path); !checked)
        return tl::unexpected(checked.error());
    Options options{
        {"format_whitelist",   kFormats  },
        {"protocol_whitelist", "file"    },
        {"max_streams",        "32"      },
        {"probesize",          "5000000" },
        {"analyzeduration",    "10000000"}
    };
    AVFormatContext* opened = nullptr;
    const std::string url = "file:" + path.string(); // a name with a colon is no protocol
    if (const int code = avformat_open_input(&opened, url.c_str(), nullptr, options.get());
        code < 0) {
        return openingError(code, path);
    }
    FFmpegPtr<AVFormatContext> format(opened);
    if (const int code = avformat_find_stream_info(opened, nullptr); code < 0) {
        return openingError(code, path);
    }
    return format;
}

void readOnlyStream(AVFormatContext& format, int stream) {
    for (unsigned i = 0; i < format.nb_streams; ++i) {
        const bool isWanted = static_cast<int>(i) == stream;
        format.streams[i]->discard = isWanted ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
}

} // namespace zelvo::media
