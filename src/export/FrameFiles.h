// SPDX-License-Identifier: MIT
#pragma once

#include "export/MovieOptions.h"
#include "platform/foundation/TemporaryFolder.h"

#include <filesystem>
#include <string>

namespace zelvo::movie {

/// The file name of a frame in framesTap's folder: frame_00000.png, frame_00001.png …
[[nodiscard]] std::string frameName(int frame);

/// Writes the movie's first `count` frames into the folder.
[[nodiscard]] FrameTap framesTap(const std::filesystem::path& folder, int count);

/// Writes only this frame (negative in the count-in).
[[nodiscard]] FrameTap pictureTap(const std::filesystem::path& file, int frame);

/// A folder of frames that gets its name when it is complete. Without that, it is deleted with the
/// object.
class FrameFolder {
public:
    /// Error: `unwritable`.
    [[nodiscard]] static foundation::Result<FrameFolder> make(const LibraryPlace& place);

    [[nodiscard]] FrameTap tap(int count) const { return framesTap(work.path(), count); }

    /// Names the folder as its place says; a taken name gets a number. Call it once. Error:
    /// `unwritable`.
    [[nodiscard]] foundation::Result<std::filesystem::path> putInPlace();

private:
    FrameFolder(LibraryPlace wanted, foundation::TemporaryFolder made)
        : place(std::move(wanted))
        , work(std::move(made)) {}

    LibraryPlace place;
    foundation::TemporaryFolder work;
};

} // namespace zelvo::movie
