// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "app/Export.h"
#include "document/Performance.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/TemporaryFolder.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace zelvo::app {

// From a performance file to an export: what the commands perform, frame, strip and batch share.

/// Why a command failed. It is cancelled if a signal came.
struct Failure {
    int status = 0;                   ///< the exit status
    std::vector<std::string> lines{}; ///< what to tell the user; none if a signal stopped it
    bool isInFile = false;            ///< the lines begin with a file or an option
};

/// Prints the failure and returns the exit status.
[[nodiscard]] int complain(const Failure& failure);

/// A performance that was read.
struct Source {
    std::filesystem::path file;
    std::vector<document::Setting> settings;
    document::Performance performance;
};

/// Reads the file, or the template, with its settings. Error: a line for each problem.
[[nodiscard]] tl::expected<Source, Failure> readSource(const SourceOptions& options);

/// A performance to export.
struct Task {
    const Source& source;
    std::optional<std::uint64_t> seed{}; ///< empty: that of the performance
    foundation::Folders folders{};
    /// The options of the export; called when the performance is set up. Errors: the arguments do
    /// not fit the performance.
    std::function<foundation::Result<movie::MovieOptions>(model::Model&)> options;
};

/// Sets up the stage, performs and exports, with progress on stderr.
[[nodiscard]] tl::expected<ExportReport, Failure>
exportPerformance(StoppableLoop& loop, const Task& task);

/// The user's folders, with empty settings: a movie must depend on nothing but performance and
/// seed, and commands that run at the same time must not disturb each other.
[[nodiscard]] foundation::Folders
foldersWithoutSettings(const foundation::TemporaryFolder& temporary);

/// Folders for a command that must leave no files except its output.
[[nodiscard]] foundation::Folders foldersIn(const foundation::TemporaryFolder& temporary);

/// Tells what is wrong with a movie that was made: it has no sound, or not all of it.
void warnAboutMusic(const movie::MovieOutcome& outcome);

} // namespace zelvo::app
