// SPDX-License-Identifier: MIT
#include "HintMovie.h"

#include "HintPainter.h"
#include "HintScript.h"
#include "app/Export.h"
#include "catalogue/Catalogue.h"
#include "document/EngineNames.h"
#include "document/PerformanceFile.h"
#include "document/Performer.h"
#include "document/SetUp.h"
#include "export/MovieMux.h"
#include "export/RawMovie.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/TemporaryFolder.h"

#include <QFontDatabase>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <utility>

namespace zelvo::hint {

using foundation::Cause;
using foundation::Result;

namespace {

constexpr int kTicksPerFrame = 2; ///< a tick is 1/60 s
constexpr double kTicksPerSecond = 60;
constexpr const char* kTab = "IN2"; ///< the tab shown

/// The stage's pictures, by tick.
using Pictures = std::map<int, QImage>;

std::vector<std::string> titles() {
    std::vector<std::string> all;
    for (const auto& button : catalogue::tabNamed(kTab)->buttons())
        all.emplace_back(button.title);
    return all;
}

std::vector<std::string> labels() {
    std::vector<std::string> all;
    for (const auto& button : catalogue::tabNamed(kTab)->buttons())
        all.emplace_back(button.face.label);
    return all;
}

Result<QString> loadFont() {
    const auto file = foundation::mainBundle().path("fonts/NunitoSans-Medium.ttf");
    const int id = QFontDatabase::addApplicationFont(QString::fromStdString(file.string()));
    if (id < 0) {
        return foundation::fail(
            Cause::notFound, "the built-in fonts are missing; run scripts/fetch-fonts.sh");
    }
    return QFontDatabase::applicationFontFamilies(id).constFirst();
}

/// Collects the stage's pictures; `frames` is the number of frames of the movie.
movie::FrameTap gather(const std::shared_ptr<Pictures>& pictures, int frames) {
    return {
        .wants =
            [frames](int frame) {
                return frame >= 0 && frame < frames && frame % kTicksPerFrame == 0;
            },
        .take = [pictures](int number, const render::FrameView& frame) -> Result<void> {
            const auto [width, height] = frame.size;
            (*pictures)[number] =
                QImage(frame.bytes.data(), width, height, QImage::Format_RGBX8888).copy();
            return {};
        },
        .count = (frames + kTicksPerFrame - 1) / kTicksPerFrame};
}

Result<std::shared_ptr<Pictures>>
drawStage(const document::Performance& performance, const std::filesystem::path& folder) {
    const auto temporary =
        foundation::TemporaryFolder::make(foundation::Folders::standard().temporary);
    if (!temporary)
        return tl::unexpected(temporary.error());
    app::StoppableLoop loop;
    app::Engine engine(loop.runLoop(), foundation::Folders::below(temporary->path()), 0);
    if (auto ready = document::setUp(performance, folder, engine.model()); !ready)
        return foundation::fail(Cause::notFound, ready.error().text);
    document::perform(performance, engine.model());

    auto pictures = std::make_shared<Pictures>();
    movie::MovieOptions options;
    options.renderSize = {HintPainter::kWidth, HintPainter::kHeight};
    options.writesMovie = false;
    options.tap = gather(pictures, movie::framesIn(engine.model().duration()));
    if (auto drawn = app::exportMovie(engine, loop, options); !drawn)
        return tl::unexpected(drawn.error());
    return pictures;
}

/// The last picture before or at that time.
const QImage& pictureAt(const Pictures& pictures, double stageTime) {
    const auto after =
        pictures.upper_bound(static_cast<int>(std::lround(stageTime * kTicksPerSecond)));
    CHECK(after != pictures.begin(), "the stage was not drawn at {} s", stageTime);
    return std::prev(after)->second;
}

Result<void> close(movie::RawMovie& file) {
    foundation::VirtualRunLoop loop;
    bool isClosed = false;
    const auto waiting = loop.expectPosts();
    file.finish([&] { loop.post([&] { isClosed = true; }); });
    (void)loop.runUntil([&] { return isClosed; });
    return file.outcome();
}

Result<void> write(
    const HintScript& script,
    const HintPainter& painter,
    const Pictures& pictures,
    const std::filesystem::path& movie) {
    const render::Size size{HintPainter::kWidth, HintPainter::kHeight};
    auto file = movie::RawMovie::create(movie, {media::VideoCodec::h264, size.width, size.height});
    if (!file)
        return tl::unexpected(file.error());
    const int frames = static_cast<int>(script.length() * kTicksPerSecond) / kTicksPerFrame;
    for (int i = 0; i < frames; ++i) {
        const int tick = i * kTicksPerFrame;
        const Moment moment = script.at(tick / kTicksPerSecond);
        QImage picture = pictureAt(pictures, moment.stageTime);
        painter.paint(picture, moment);
        const render::FrameView frame{
            size, {picture.constBits(), static_cast<std::size_t>(picture.sizeInBytes())}};
        if (auto written = (*file)->append(frame, {tick, 60}); !written)
            return written;
    }
    return close(**file);
}

} // namespace

Result<void>
makeHintMovie(const std::filesystem::path& performanceFile, const std::filesystem::path& movie) {
    const auto performance = document::loadPerformance(performanceFile, document::engineNames());
    if (!performance)
        return foundation::fail(Cause::malformed, performance.error().front());
    const auto family = loadFont();
    if (!family)
        return tl::unexpected(family.error());
    const auto pictures = drawStage(*performance, performanceFile.parent_path());
    if (!pictures)
        return tl::unexpected(pictures.error());
    return write(
        HintScript(*performance, titles()), HintPainter(labels(), *family), **pictures, movie);
}

} // namespace zelvo::hint
