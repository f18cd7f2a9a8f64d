// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/AVAssetWriter.h"
#include "platform/render/SCNRenderer.h"

#include <filesystem>
#include <functional>
#include <memory>

namespace zelvo::movie {

/// Writes the silent video frame by frame. Encodes on the writer's thread. If there is no room, a
/// frame waits; none is dropped. If it is destroyed before it is finished, the file is removed.
class RawMovie {
public:
    /// Error: `unwritable`.
    [[nodiscard]] static foundation::Result<std::unique_ptr<RawMovie>>
    create(const std::filesystem::path& file, const media::VideoSettings& settings);

    /// Queues a picture with 4 bytes a pixel. The first one starts the session. Errors: those of
    /// the encoder and of writing.
    [[nodiscard]] foundation::Result<void>
    append(const render::FrameView& frame, media::CMTime presentationTime);

    /// Closes the file; `completion` is called on the writer's thread.
    void finish(std::function<void()> completion);
    /// Whether the file is complete; call it after the completion.
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
