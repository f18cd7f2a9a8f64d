// SPDX-License-Identifier: MIT
#include "platform/media/FFmpeg.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>

namespace zelvo::media {

using foundation::Cause;
using foundation::Error;

Options::Options(std::initializer_list<std::pair<std::string_view, std::string_view>> entries) {
    for (const auto& [key, value] : entries) {
        av_dict_set(&entries_, std::string(key).c_str(), std::string(value).c_str(), 0);
    }
}

Options::~Options() {
    av_dict_free(&entries_);
}

void silenceFFmpeg() {
    av_log_set_level(AV_LOG_QUIET);
}

std::string describeAVError(int code) {
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
    av_strerror(code, text.data(), text.size());
    return text.data();
}

Error writingError(int code, const std::filesystem::path& file) {
    const auto say = [&](std::string_view why) {
        return Error{Cause::unwritable, fmt::format("{} {}", file.string(), why)};
    };
    switch (AVUNERROR(code)) {
    case ENOSPC:
    case EDQUOT:
        return say("cannot be written: the disk is full. Free some space and try again.");
    case EFBIG:
        return say("cannot be written: it would be larger than a file may be here.");
    case EACCES:
    case EPERM:
    case EROFS:
        return say("cannot be written: access is denied. Choose another folder.");
    case ENOENT:
    case ENOTDIR:
        return say("cannot be written: its folder does not exist.");
    case EISDIR:
        return say("cannot be written: a folder of that name is in the way.");
    default:
        return say(fmt::format("cannot be written: {}.", describeAVError(code)));
    }
}

} // namespace zelvo::media
