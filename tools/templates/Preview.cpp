// SPDX-License-Identifier: MIT
#include "Preview.h"

#include "../frames/FrameRows.h"
#include "app/Export.h"
#include "document/EngineNames.h"
#include "document/PerformanceFile.h"
#include "document/Performer.h"
#include "document/SetUp.h"
#include "document/Templates.h"
#include "platform/foundation/TemporaryFolder.h"

#include <QImage>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace zelvo::previews {

using document::TemplatePreview;
using foundation::Cause;
using foundation::Result;

namespace {

constexpr int kDrawnPerSecond = 60;
constexpr int kStep = kDrawnPerSecond / TemplatePreview::kFramesPerSecond;
constexpr int kPassing = 6; ///< frames in which the end passes into the beginning
constexpr int kTaken = TemplatePreview::kFrames + kPassing;

using Frames = std::vector<QImage>;

/// The movie's frame at which the preview begins: so that its middle is the movie's.
[[nodiscard]] int firstFrame(double duration) {
    const int middle = static_cast<int>(std::lround(duration / 2 * kDrawnPerSecond));
    return std::max(0, middle - kTaken / 2 * kStep);
}

[[nodiscard]] movie::FrameTap gather(const std::shared_ptr<Frames>& frames, int first) {
    return {
        .wants =
            [first](int frame) {
                const int place = frame - first;
                return place >= 0 && place % kStep == 0 && place / kStep < kTaken;
            },
        .take = [frames](int, const render::FrameView& drawn) -> Result<void> {
            const auto [width, height] = drawn.size;
            frames->push_back(
                QImage(drawn.bytes.data(), width, height, QImage::Format_RGBX8888).copy());
            return {};
        },
        .count = kTaken};
}

[[nodiscard]] Result<Frames> drawFrames(const std::filesystem::path& file) {
    const auto performance = document::loadPerformance(file, document::engineNames());
    if (!performance)
        return foundation::fail(Cause::malformed, performance.error().front());
    const auto temporary =
        foundation::TemporaryFolder::make(foundation::Folders::standard().temporary);
    if (!temporary)
        return tl::unexpected(temporary.error());
    app::StoppableLoop loop;
    app::Engine engine(loop.runLoop(), foundation::Folders::below(temporary->path()), 0);
    if (auto ready = document::setUp(*performance, file.parent_path(), engine.model()); !ready)
        return foundation::fail(Cause::notFound, ready.error().text);
    document::perform(*performance, engine.model());

    const auto frames = std::make_shared<Frames>();
    movie::MovieOptions options;
    options.renderSize = {TemplatePreview::kWidth, TemplatePreview::kHeight};
    options.writesMovie = false;
    options.tap = gather(frames, firstFrame(engine.model().duration()));
    if (auto drawn = app::exportMovie(engine, loop, options); !drawn)
        return tl::unexpected(drawn.error());
    if (frames->size() < kTaken)
        return foundation::fail(Cause::malformed, file.string() + ": too short for a preview");
    return std::move(*frames);
}

} // namespace

Result<QByteArray> makePreview(const std::filesystem::path& performance) {
    const auto drawn = drawFrames(performance);
    if (!drawn)
        return tl::unexpected(drawn.error());
    constexpr int kQuality = 88;
    const QImage sheet =
        frames::inRows(*drawn, {TemplatePreview::kColumns, TemplatePreview::kFrames, kPassing});
    return frames::packed(sheet, kQuality, TemplatePreview::kMaxBytes);
}

} // namespace zelvo::previews
