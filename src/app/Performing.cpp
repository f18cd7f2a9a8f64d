// SPDX-License-Identifier: MIT
#include "app/Performing.h"

#include "app/Commands.h"
#include "document/EngineNames.h"
#include "document/PerformanceFile.h"
#include "document/Performer.h"
#include "document/SetUp.h"
#include "document/Templates.h"
#include "platform/foundation/Console.h"

#include <fmt/format.h>

#include <utility>

namespace zelvo::app {

namespace {

using foundation::Cause;
using tl::unexpected;

[[nodiscard]] Failure failureOf(const foundation::Error& error, int status) {
    return {status, {error.message}};
}

[[nodiscard]] foundation::Result<std::filesystem::path> fileOf(const SourceOptions& options) {
    if (options.templateName.empty())
        return options.file;
    const std::filesystem::path given = options.templateName;
    const bool isFile = given.has_parent_path() || given.has_extension();
    return isFile ? given : document::templateFile(options.templateName);
}

} // namespace

int complain(const Failure& failure) {
    for (const auto& line : failure.lines)
        foundation::logLine(failure.isInFile ? line : "zelvo: " + line);
    return failure.status;
}

tl::expected<Source, Failure> readSource(const SourceOptions& options) {
    const auto file = fileOf(options);
    if (!file)
        return unexpected(failureOf(file.error(), ExitStatus::kWrong));
    auto performance = document::loadPerformance(*file, document::engineNames(), options.settings);
    if (!performance)
        return unexpected(Failure{ExitStatus::kWrong, std::move(performance.error()), true});
    return Source{*file, options.settings, std::move(*performance)};
}

tl::expected<ExportReport, Failure> exportPerformance(StoppableLoop& loop, const Task& task) {
    const Source& source = task.source;
    const auto stopped = [&] {
        return unexpected(Failure{ExitStatus::kStopped + loop.stopSignal()});
    };
    const std::uint64_t seed = task.seed.value_or(source.performance.seed.value_or(0));
    Engine engine(loop.runLoop(), task.folders, seed);
    const auto ready =
        document::setUp(source.performance, source.file.parent_path(), engine.model());
    if (!ready) {
        const auto line = document::message(ready.error(), source.file, source.settings);
        return unexpected(Failure{ExitStatus::kWrong, {line}, true});
    }
    const auto options = task.options(engine.model());
    if (!options)
        return unexpected(failureOf(options.error(), ExitStatus::kWrong));
    document::perform(source.performance, engine.model());
    if (loop.stopSignal() != 0)
        return stopped();
    auto report = exportMovie(engine, loop, *options);
    if (report)
        return std::move(*report);
    if (report.error().cause == Cause::cancelled)
        return stopped();
    return unexpected(failureOf(report.error(), ExitStatus::kFailed));
}

foundation::Folders foldersWithoutSettings(const foundation::TemporaryFolder& temporary) {
    auto folders = foundation::Folders::standard();
    folders.config = temporary.path();
    return folders;
}

foundation::Folders foldersIn(const foundation::TemporaryFolder& temporary) {
    auto folders = foldersWithoutSettings(temporary);
    folders.documents = temporary.path();
    return folders;
}

void warnAboutMusic(const movie::MovieOutcome& outcome) {
    if (!outcome.musicFailure.empty())
        foundation::logLine("zelvo: the movie is silent: " + outcome.musicFailure);
    if (!outcome.musicDamage.empty())
        foundation::logLine("zelvo: " + outcome.musicDamage);
}

} // namespace zelvo::app
