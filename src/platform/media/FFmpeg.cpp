// SPDX-License-Identifier: MIT
#include "platform/media/FFmpeg.h"

#include "platform/foundation/WritingError.h"

#include <fmt/format.h>

#include <array>

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
    constexpr int kMaxErrno = 4095; // FFmpeg's own codes are beyond
    const int errorNumber = AVUNERROR(code);
    if (errorNumber > 0 && errorNumber <= kMaxErrno)
        return foundation::writingError(errorNumber, file);
    return {
        Cause::unwritable,
        fmt::format("{} cannot be written: {}.", file.string(), describeAVError(code))};
}

} // namespace zelvo::media
