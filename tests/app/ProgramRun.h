// SPDX-License-Identifier: MIT
#pragma once

#include "support/TemporaryFolder.h"

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::app {

/// How a run of the program ended.
struct Ending {
    int status = -1; ///< of exit; 128 plus the signal's number where one killed it
    std::string out;
    std::string err;
};

/// Runs the program from outside, with a home folder of its own.
class Program {
public:
    using Arguments = std::vector<std::string>;

    [[nodiscard]] const std::filesystem::path& home() const { return folder.path(); }

    /// Files cannot grow beyond so many bytes, as on a full disk; 0 sets no limit.
    [[nodiscard]] Ending run(const Arguments& arguments, long maxFileBytes = 0) const;

    /// Sends the signal as soon as the first file has appeared in the folder.
    [[nodiscard]] Ending runAndSignal(
        const Arguments& arguments, const std::filesystem::path& watched, int signal) const;

    /// Writes a file into the home folder and gives its path.
    std::string write(const std::string& name, const std::string& text) const;

    [[nodiscard]] std::string path(const std::string& name) const { return home() / name; }

private:
    [[nodiscard]] pid_t start(const Arguments& arguments, long maxFileBytes) const;
    [[nodiscard]] Ending end(pid_t child) const;

    test::TemporaryFolder folder;
};

[[nodiscard]] std::string contentOf(const std::filesystem::path& file);

} // namespace zelvo::app
