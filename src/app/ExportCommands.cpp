// SPDX-License-Identifier: MIT
#include "app/Commands.h"
#include "app/Performing.h"
#include "app/Strip.h"
#include "export/FrameFiles.h"
#include "export/MovieMux.h"
#include "node/DefaultSCNNode.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/NewFile.h"
#include "shared/FrameClock.h"

#include <fmt/format.h>

#include <cstdio>
#include <functional>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

namespace zelvo::app {

namespace {

/// Reads a performance, exports it and tells the result.
struct Export {
    const SourceOptions& source;
    std::optional<std::uint64_t> seed;
    foundation::Folders folders;
    std::function<foundation::Result<movie::MovieOptions>(model::Model&)> options;
    std::function<void(const ExportReport&)> report;
};

int carryOut(StoppableLoop& loop, const Export& wanted) {
    const auto source = readSource(wanted.source);
    if (!source)
        return complain(source.error());
    const auto report = exportPerformance(
        loop,
        {.source = *source,
         .seed = wanted.seed,
         .folders = wanted.folders,
         .options = wanted.options});
    if (!report && report.error().status > ExitStatus::kStopped)
        return stoppedBy(report.error().status - ExitStatus::kStopped);
    if (!report)
        return complain(report.error());
    wanted.report(*report);
    return report->outcome.saveFailure.empty() ? ExitStatus::kDone : ExitStatus::kFailed;
}

void printPath(const std::filesystem::path& path) {
    (void)std::fputs((path.string() + "\n").c_str(), stdout);
}

void reportPerformance(const PerformCommand& command, const ExportReport& report) {
    const auto& outcome = report.outcome;
    warnAboutMusic(outcome);
    if (!outcome.saveFailure.empty()) {
        foundation::logLine(fmt::format(
            "zelvo: {}; the movie lies at {}", outcome.saveFailure, outcome.movie.string()));
    } else if (outcome.savedCopy) {
        printPath(*outcome.savedCopy);
    } else {
        printPath(outcome.movie.empty() ? command.frames : outcome.movie);
    }
    if (command.showsTiming)
        (void)std::fputs(timingTable(report).c_str(), stdout);
}

[[nodiscard]] std::uint32_t leftOut(bool hasAlpha) {
    return hasAlpha ? node::kStageMask : 0;
}

[[nodiscard]] movie::MovieOptions optionsFor(const PerformCommand& command, double duration) {
    movie::MovieOptions options;
    options.renderSize = {command.size.width, command.size.height};
    options.quality = command.quality;
    options.leftOut = leftOut(command.hasAlpha);
    options.codec = command.codec;
    options.container = command.format;
    if (!command.movie.empty())
        options.output = command.movie;
    options.writesMovie = !command.movie.empty() || command.frames.empty();
    if (!command.frames.empty())
        options.tap = movie::framesTap(command.frames, movie::framesIn(duration));
    return options;
}

[[nodiscard]] movie::MovieOptions optionsForTap(const PictureSize& size, movie::FrameTap tap) {
    movie::MovieOptions options;
    options.renderSize = {size.width, size.height};
    options.writesMovie = false;
    options.tap = std::move(tap);
    return options;
}

[[nodiscard]] foundation::Result<void>
checkMoment(std::string_view option, double at, const model::Model& model) {
    const double earliest = -model.startCounter();
    if (at >= earliest && at <= model.duration())
        return {};
    return foundation::fail(
        foundation::Cause::malformed,
        fmt::format(
            "{} must be {} to {} seconds for this performance, not {}",
            option,
            earliest,
            model.duration(),
            at));
}

[[nodiscard]] foundation::Result<movie::MovieOptions>
optionsFor(const StripCommand& command, const model::Model& model) {
    for (const auto& within :
         {checkMoment("--from", command.from, model), checkMoment("--to", command.to, model)}) {
        if (!within)
            return tl::unexpected(within.error());
    }
    if (command.to < command.from) {
        return foundation::fail(
            foundation::Cause::malformed,
            fmt::format("--to must not lie before --from, {} seconds", command.from));
    }
    auto tap = stripTap(command);
    if (!tap)
        return tl::unexpected(tap.error());
    return optionsForTap(command.size, std::move(*tap));
}

} // namespace

int run(const PerformCommand& command) {
    StoppableLoop loop;
    const auto temporary =
        foundation::TemporaryFolder::make(foundation::Folders::standard().temporary);
    if (!temporary)
        return complain(temporary.error(), ExitStatus::kFailed);
    const bool goesToLibrary = command.movie.empty() && command.frames.empty();
    if (!command.frames.empty()) {
        std::error_code error;
        std::filesystem::create_directories(command.frames, error);
        if (error) {
            return complain(
                {foundation::Cause::unwritable,
                 fmt::format("{}: {}", command.frames.string(), error.message())},
                ExitStatus::kFailed);
        }
        const auto writable = foundation::NewFile::check(command.frames / movie::frameName(0));
        if (!writable)
            return complain(writable.error(), ExitStatus::kFailed);
    }
    return carryOut(
        loop,
        {.source = command.source,
         .seed = command.seed,
         .folders = goesToLibrary ? foldersWithoutSettings(*temporary) : foldersIn(*temporary),
         .options = [&](model::Model& model) -> foundation::Result<movie::MovieOptions> {
             return optionsFor(command, model.duration());
         },
         .report = [&](const ExportReport& report) { reportPerformance(command, report); }});
}

int run(const FrameCommand& command) {
    if (const auto writable = foundation::NewFile::check(command.out); !writable)
        return complain(writable.error(), ExitStatus::kFailed);
    StoppableLoop loop;
    const auto temporary =
        foundation::TemporaryFolder::make(foundation::Folders::standard().temporary);
    if (!temporary)
        return complain(temporary.error(), ExitStatus::kFailed);
    return carryOut(
        loop,
        {.source = command.source,
         .seed = command.seed,
         .folders = foldersIn(*temporary),
         .options = [&](model::Model& model) -> foundation::Result<movie::MovieOptions> {
             if (auto within = checkMoment("--at", command.at, model); !within)
                 return tl::unexpected(within.error());
             auto options = optionsForTap(
                 command.size,
                 movie::pictureTap(command.out, shared::FrameClock::frameSeenAt(command.at)));
             options.quality = command.quality;
             options.leftOut = leftOut(command.hasAlpha);
             return options;
         },
         .report = [&](const ExportReport&) { printPath(command.out); }});
}

int run(const StripCommand& command) {
    if (const auto writable = foundation::NewFile::check(command.out); !writable)
        return complain(writable.error(), ExitStatus::kFailed);
    StoppableLoop loop;
    const auto temporary =
        foundation::TemporaryFolder::make(foundation::Folders::standard().temporary);
    if (!temporary)
        return complain(temporary.error(), ExitStatus::kFailed);
    return carryOut(
        loop,
        {.source = command.source,
         .seed = command.seed,
         .folders = foldersIn(*temporary),
         .options = [&](model::Model& model) { return optionsFor(command, model); },
         .report = [&](const ExportReport&) { printPath(command.out); }});
}

} // namespace zelvo::app
