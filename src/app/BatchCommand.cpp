// SPDX-License-Identifier: MIT
#include "app/BatchRecord.h"
#include "app/BatchTable.h"
#include "app/Commands.h"
#include "app/Performing.h"
#include "document/StylePaths.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/Csv.h"
#include "platform/foundation/NewFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <system_error>
#include <utility>

namespace zelvo::app {

namespace {

using foundation::Cause;
using foundation::fail;
using foundation::logLine;
using foundation::Result;

constexpr std::size_t kMaxLines = 40; ///< of the report about rows that were left out

/// Reads only as much as the parser needs to see that the table is too large.
[[nodiscard]] Result<std::string> bytesOf(const std::filesystem::path& table) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(table, error))
        return fail(Cause::notFound, table.string() + ": no such file");
    std::ifstream in(table, std::ios::binary);
    std::string bytes(foundation::kMaxCsvBytes + 1, '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!in.is_open() || in.bad())
        return fail(Cause::unreadable, table.string() + ": cannot be read");
    bytes.resize(static_cast<std::size_t>(in.gcount()));
    return bytes;
}

[[nodiscard]] Result<std::vector<BatchRow>> rowsIn(const std::filesystem::path& table) {
    const auto bytes = bytesOf(table);
    if (!bytes)
        return tl::unexpected(bytes.error());
    auto rows = readBatchTable(*bytes, std::filesystem::absolute(table).parent_path());
    if (!rows) {
        const auto& problem = rows.error();
        return fail(
            Cause::malformed, fmt::format("{}:{}: {}", table.string(), problem.line, problem.text));
    }
    return std::move(*rows);
}

[[nodiscard]] Result<void> makeFolder(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error)
        return fail(Cause::unwritable, fmt::format("{}: {}", folder.string(), error.message()));
    return foundation::NewFile::check(folder / BatchRecord::kFileName);
}

class Batch {
public:
    explicit Batch(const BatchCommand& options)
        : command(options)
        , record(BatchRecord::of(options.movies)) {}

    /// Reads all rows before the first movie, so that a fault in the table shows at once.
    void plan(std::vector<BatchRow> rows) {
        rowCount = rows.size();
        for (BatchRow& row : rows)
            planRow(std::move(row));
        if (doneBefore > 0)
            logLine(fmt::format("zelvo: {} of {} movies are there already", doneBefore, rowCount));
    }

    /// Makes the movies. Returns the exit status.
    [[nodiscard]] int make(StoppableLoop& loop, const foundation::Folders& folders) {
        std::size_t number = 0;
        for (const Job& job : jobs) {
            if (loop.stopSignal() != 0)
                break;
            logLine(fmt::format("{} of {}: {}", ++number, jobs.size(), job.row.movie));
            loop.renew();
            makeMovie(job, loop, folders);
        }
        tellFailures();
        if (loop.stopSignal() == 0)
            return status;
        logLine(fmt::format(
            "zelvo: stopped with {} of {} movies done; the same command goes on from there",
            doneBefore + made,
            rowCount));
        return ExitStatus::kStopped + loop.stopSignal();
    }

private:
    struct Job {
        BatchRow row;
        std::string key;
    };

    [[nodiscard]] SourceOptions sourceOf(const BatchRow& row) const {
        SourceOptions source = command.source;
        source.settings.insert(source.settings.end(), row.settings.begin(), row.settings.end());
        return source;
    }

    void planRow(BatchRow row) {
        if (!row.problem.empty())
            return leaveOut(row, {ExitStatus::kWrong, {row.problem}});
        const auto source = readSource(sourceOf(row));
        if (!source)
            return leaveOut(row, source.error());
        document::Performance whole = source->performance;
        static_cast<document::Style&>(whole) =
            document::resolved(source->performance, source->file.parent_path());
        auto key = batchKey(whole, command);
        if (record.has(row.movie, key))
            ++doneBefore;
        else
            jobs.push_back({std::move(row), std::move(key)});
    }

    void makeMovie(const Job& job, StoppableLoop& loop, const foundation::Folders& folders) {
        const auto source = readSource(sourceOf(job.row));
        if (!source)
            return leaveOut(job.row, source.error());
        const auto movie = command.movies / job.row.movie;
        const auto report = exportPerformance(
            loop,
            {*source, command.seed, folders, [&](model::Model&) { return optionsFor(movie); }});
        if (!report && report.error().status > ExitStatus::kStopped)
            return; // the caller sees the signal
        if (!report)
            return leaveOut(job.row, report.error());
        warnAboutMusic(report->outcome);
        ++made;
        (void)std::fputs((movie.string() + "\n").c_str(), stdout);
        (void)std::fflush(stdout);
        if (const auto kept = record.add(job.row.movie, job.key); !kept)
            leaveOut(job.row, {ExitStatus::kFailed, {kept.error().message}});
    }

    [[nodiscard]] Result<movie::MovieOptions> optionsFor(const std::filesystem::path& movie) const {
        movie::MovieOptions options;
        options.renderSize = {command.size.width, command.size.height};
        options.quality = command.quality;
        options.codec = command.codec;
        options.output = movie;
        return options;
    }

    void leaveOut(const BatchRow& row, const Failure& failure) {
        status = std::max(status, failure.status);
        ++leftOut;
        for (const std::string& line : failure.lines)
            told.push_back(fmt::format("{}:{}: {}", command.table.string(), row.line, line));
    }

    void tellFailures() const {
        if (leftOut == 0)
            return;
        logLine(fmt::format("zelvo: {} of {} rows were left out:", leftOut, rowCount));
        for (std::size_t i = 0; i < std::min(told.size(), kMaxLines); ++i)
            logLine(told[i]);
        if (told.size() > kMaxLines)
            logLine(fmt::format("and {} more", told.size() - kMaxLines));
    }

    const BatchCommand& command;
    BatchRecord record;
    std::vector<Job> jobs;
    std::vector<std::string> told;
    std::size_t rowCount = 0;
    std::size_t doneBefore = 0;
    std::size_t made = 0;
    std::size_t leftOut = 0;
    int status = ExitStatus::kDone;
};

} // namespace

int run(const BatchCommand& command) {
    auto rows = rowsIn(command.table);
    if (!rows)
        return complain(rows.error(), ExitStatus::kWrong);
    if (const auto writable = makeFolder(command.movies); !writable)
        return complain(writable.error(), ExitStatus::kFailed);
    StoppableLoop loop;
    const auto temporary =
        foundation::TemporaryFolder::make(foundation::Folders::standard().temporary);
    if (!temporary)
        return complain(temporary.error(), ExitStatus::kFailed);
    Batch batch(command);
    batch.plan(std::move(*rows));
    return batch.make(loop, foldersIn(*temporary));
}

} // namespace zelvo::app
