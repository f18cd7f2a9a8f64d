// SPDX-License-Identifier: MIT
#include "export/FrameFiles.h"

#include "export/VideoLibrary.h"
#include "platform/foundation/WritingError.h"
#include "platform/image/Image.h"

#include <fcntl.h>
#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>
#include <utility>

namespace zelvo::movie {

namespace fs = std::filesystem;

namespace {

[[nodiscard]] foundation::Result<void>
save(const render::FrameView& frame, image::Image& scratch, const fs::path& file) {
    scratch.width = frame.size.width;
    scratch.height = frame.size.height;
    scratch.pixels.assign(frame.bytes.begin(), frame.bytes.end());
    return image::savePNG(scratch, file);
}

/// False, with errno, if it fails; EEXIST if the name is taken.
[[nodiscard]] bool renameIfFree(const fs::path& from, const fs::path& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    // Not every disk has this; a plain renaming takes only the place of an empty folder.
    return errno == EINVAL && std::rename(from.c_str(), to.c_str()) == 0;
}

} // namespace

std::string frameName(int frame) {
    return fmt::format("frame_{:05}.png", frame);
}

FrameTap framesTap(const fs::path& folder, int count) {
    const auto scratch = std::make_shared<image::Image>();
    return {
        .wants = [count](int frame) { return frame >= 0 && frame < count; },
        .take =
            [folder, scratch](int frame, const render::FrameView& picture) {
                return save(picture, *scratch, folder / frameName(frame));
            },
        .count = count};
}

FrameTap pictureTap(const fs::path& file, int frame) {
    const auto scratch = std::make_shared<image::Image>();
    return {
        .wants = [frame](int drawn) { return drawn == frame; },
        .take =
            [file, scratch](int, const render::FrameView& picture) {
                return save(picture, *scratch, file);
            },
        .count = 1};
}

foundation::Result<FrameFolder> FrameFolder::make(const LibraryPlace& place) {
    auto made = foundation::TemporaryFolder::make(place.folder);
    if (!made)
        return tl::unexpected(made.error());
    return FrameFolder(place, std::move(*made));
}

foundation::Result<fs::path> FrameFolder::putInPlace() {
    constexpr auto kPublic = fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                             fs::perms::others_read | fs::perms::others_exec;
    std::error_code ignored; // the owner can read it anyway
    fs::permissions(work.path(), kPublic, ignored);
    while (true) {
        const fs::path named = VideoLibrary(place.folder).freePlace(place, "");
        if (renameIfFree(work.path(), named))
            return named;
        if (errno != EEXIST) // another program has not just taken the name
            return tl::unexpected(foundation::writingError(errno, named));
    }
}

} // namespace zelvo::movie
