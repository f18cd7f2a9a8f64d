// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/AVAssetWriter.h"
#include "platform/render/SCNRenderer.h"

#include <filesystem>
#include <functional>
#include <memory>

namespace zelvo::movie {

/// The silent video as it is written frame by frame. Frames are encoded on the writer's thread; a
/// frame that finds no room waits, none is dropped. A raw movie that goes without having finished
/// leaves no file.
class RawMovie {
public:
    /// Errors: unwritable.
    [[nodiscard]] static foundation::Result<std::unique_ptr<RawMovie>>
    create(const std::filesystem::path& file, const media::VideoSettings& settings);

    /// Queues a picture of 4 bytes a pixel; the first opens the session. Errors: the encoder's or
    /// the disk's.
    [[nodiscard]] foundation::Result<void>
    append(const render::FrameView& frame, media::CMTime presentationTime);

    /// Closes the file; the completion is called on the writer's thread.
    void finish(std::function<void()> completion);
    /// After the completion: whether the file is whole.
    [[nodiscard]] foundation::Result<void> outcome() const;
    void cancel();

    [[nodiscard]] double encodingSeconds() const { return assetWriter->encodingSeconds(); }

private:
    RawMovie(std::unique_ptr<media::AVAssetWriter> writer, const media::VideoSettings& settings);
    [[nodiscard]] foundation::Result<void> startSession();

    std::unique_ptr<media::AVAssetWriter> assetWriter;
    media::AVAssetWriterInput& videoInput; ///< owned by the writer
    media::AVAssetWriterInputPixelBufferAdaptor pixelBufferInput;
    bool writerHasStarted = false;
};

} // namespace zelvo::movie
