// SPDX-License-Identifier: MIT
#include "Preview.h"

#include "app/Export.h"
#include "document/EngineNames.h"
#include "document/PerformanceFile.h"
#include "document/Performer.h"
#include "document/SetUp.h"
#include "document/Templates.h"
#include "platform/foundation/TemporaryFolder.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>

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

/// The frames in rows. The first ones come softly out of those behind the last one.
[[nodiscard]] QImage inRows(const Frames& frames) {
    constexpr int kColumns = TemplatePreview::kColumns;
    constexpr int kRows = (TemplatePreview::kFrames + kColumns - 1) / kColumns;
    QImage sheet(
        kColumns * TemplatePreview::kWidth, kRows * TemplatePreview::kHeight, QImage::Format_RGB32);
    sheet.fill(Qt::black);
    QPainter painter(&sheet);
    for (int i = 0; i < TemplatePreview::kFrames; ++i) {
        const QPoint place(
            i % kColumns * TemplatePreview::kWidth, i / kColumns * TemplatePreview::kHeight);
        painter.setOpacity(1);
        painter.drawImage(place, frames[static_cast<std::size_t>(i)]);
        if (i >= kPassing)
            continue;
        painter.setOpacity(1 - (i + 1.0) / (kPassing + 1));
        painter.drawImage(place, frames[static_cast<std::size_t>(TemplatePreview::kFrames + i)]);
    }
    return sheet;
}

/// The JPEG of the best quality that is small enough.
[[nodiscard]] QByteArray packed(const QImage& sheet) {
    constexpr int kBest = 88;
    constexpr int kWorst = 20;
    QByteArray bytes;
    for (int quality = kBest; quality >= kWorst; quality -= 4) {
        bytes.clear();
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        sheet.save(&buffer, "jpg", quality);
        if (bytes.size() <= TemplatePreview::kMaxBytes)
            break;
    }
    return bytes;
}

} // namespace

Result<QByteArray> makePreview(const std::filesystem::path& performance) {
    const auto frames = drawFrames(performance);
    if (!frames)
        return tl::unexpected(frames.error());
    return packed(inRows(*frames));
}

} // namespace zelvo::previews
