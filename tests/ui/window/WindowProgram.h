// SPDX-License-Identifier: MIT
#pragma once

#include "support/TemporaryFolder.h"

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::test {

/// The program in its window, as a process with a home folder of its own. It is ended with the test.
class WindowProgram {
public:
    /// `settings` are those of an earlier start, as JSON; empty: there was none.
    explicit WindowProgram(const std::string& settings = {});
    ~WindowProgram();
    WindowProgram(const WindowProgram&) = delete;
    WindowProgram& operator=(const WindowProgram&) = delete;

    [[nodiscard]] bool isRunning() const;
    /// Asks it to end, and waits.
    void end();

    /// The files of a folder of the home folder with this ending (".mov"). Not those inside of it.
    [[nodiscard]] std::vector<std::filesystem::path>
    files(const std::string& name, const std::string& ending) const;

    [[nodiscard]] const std::filesystem::path& home() const { return folder.path(); }

private:
    TemporaryFolder folder;
    pid_t process = -1;
};

} // namespace zelvo::test
