// SPDX-License-Identifier: MIT
#include "app/Export.h"

#include "app/Progress.h"
#include "app/Stopwatch.h"
#include "platform/foundation/Lifetime.h"

#include <fmt/format.h>

#include <optional>
#include <string>

namespace zelvo::app {

namespace {

[[nodiscard]] std::string timingRow(const char* name, double milliseconds, const char* remark) {
    return fmt::format("  {:<14}{:>9.2f}{}\n", name, milliseconds, remark);
}

} // namespace

StoppableLoop::StoppableLoop()
    : current(std::make_unique<foundation::VirtualRunLoop>())
    , signals([this] {
        const std::lock_guard lock(mutex);
        current->post([this] {
            if (onStop)
                onStop();
        });
    }) {}

void StoppableLoop::renew() {
    const std::lock_guard lock(mutex);
    current = std::make_unique<foundation::VirtualRunLoop>();
}

foundation::Result<ExportReport>
exportMovie(Engine& engine, StoppableLoop& loop, const movie::MovieOptions& options) {
    auto& model = engine.model();
    auto& writer = model.movieWriter();
    writer.options = options;

    auto progress = Progress::onStandardError();
    std::optional<foundation::Result<movie::MovieOutcome>> outcome;
    const foundation::Lifetime listening;
    writer.progressSignal.subscribe(listening, [&](const movie::MovieProgress& state) {
        progress.update(state.framesDone, state.framesTotal);
    });
    writer.completedSignal.subscribe(
        listening, [&](const foundation::Result<movie::MovieOutcome>& made) { outcome = made; });

    const double start = stopwatchSeconds();
    if (auto started = model.startMovie(); !started)
        return tl::unexpected(started.error());
    loop.onStop = [&model] { model.cancelMovie(); };
    const auto waiting = loop.runLoop().expectPosts();
    (void)loop.runLoop().runUntil([&] { return outcome.has_value(); });
    loop.onStop = {};
    progress.finish();
    if (!*outcome)
        return tl::unexpected(outcome->error());
    return ExportReport{**outcome, writer.timings(), stopwatchSeconds() - start};
}

std::string timingTable(const ExportReport& report) {
    const auto& frames = report.timings.frames;
    const double count = std::max(1, report.outcome.frames);
    std::string table = fmt::format(
        "milliseconds a frame, of {} frames ({} repeat the one before)\n",
        report.outcome.frames,
        frames.repeated);
    table += timingRow("animating", frames.animateMs / count, "");
    table += timingRow("drawing", frames.drawMs / count, "");
    table += timingRow("reading back", frames.readBackMs / count, "");
    table += timingRow("encoding", report.timings.encodeMs / count, "  (beside the rest)");
    table += timingRow("total", report.seconds * 1000 / count, "");
    table += fmt::format("{:.2f} frames a second\n", count / report.seconds);
    return table;
}

} // namespace zelvo::app
