// SPDX-License-Identifier: MIT
#include "platform/foundation/WritingError.h"

#include <fmt/format.h>

#include <cerrno>
#include <string>
#include <system_error>

namespace zelvo::foundation {

namespace {

std::string reason(int errorNumber) {
    switch (errorNumber) {
    case ENOSPC:
    case EDQUOT:
        return "the disk is full. Free some space and try again.";
    case EFBIG:
        return "it would be larger than a file may be here.";
    case EACCES:
    case EPERM:
    case EROFS:
        return "access is denied. Choose another folder.";
    case ENOENT:
    case ENOTDIR:
        return "its folder does not exist.";
    case EISDIR:
        return "a folder of that name is in the way.";
    case ENAMETOOLONG:
        return "its name is too long.";
    default:
        return std::system_category().message(errorNumber) + ".";
    }
}

} // namespace

Error writingError(int errorNumber, const std::filesystem::path& file) {
    return {
        Cause::unwritable,
        fmt::format("{} cannot be written: {}", file.string(), reason(errorNumber))};
}

} // namespace zelvo::foundation
