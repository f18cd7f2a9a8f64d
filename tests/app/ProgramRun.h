// SPDX-License-Identifier: MIT
#pragma once

#include "support/TemporaryFolder.h"

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::app {

/// The result of a run of the program.
struct Ending {
    int status = -1; ///< the exit status; 128 plus the signal's number if a signal ended it
    std::string out;
    std::string err;
};

/// Runs the program as a process with its own home folder.
class Program {
public:
    using Arguments = std::vector<std::string>;

    [[nodiscard]] const std::filesystem::path& home() const { return folder.path(); }

    /// No file can have more than `maxFileBytes`, as on a full disk; 0: no limit.
    [[nodiscard]] Ending run(const Arguments& arguments, long maxFileBytes = 0) const;

    /// Sends the signal when the first file appears in the folder.
    [[nodiscard]] Ending runAndSignal(
        const Arguments& arguments, const std::filesystem::path& watched, int signal) const;

    /// Writes a file into the home folder and returns its path.
    std::string write(const std::string& name, const std::string& text) const;

    [[nodiscard]] std::string path(const std::string& name) const { return home() / name; }

private:
    [[nodiscard]] pid_t start(const Arguments& arguments, long maxFileBytes) const;
    [[nodiscard]] Ending end(pid_t child) const;

    test::TemporaryFolder folder;
};

/// Whether the thread sanitizer has made this file, at the start of a program.
[[nodiscard]] bool isOfTheSanitizer(const std::string& name);

[[nodiscard]] std::string contentOf(const std::filesystem::path& file);

} // namespace zelvo::app
