// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "platform/foundation/Result.h"

namespace zelvo::app {

/// How a command ends. One that was stopped by a signal ends with kStopped plus the signal's
/// number.
struct ExitStatus {
    static constexpr int kDone = 0;
    static constexpr int kFailed = 1; ///< the export, or the window
    static constexpr int kWrong = 2;  ///< the command line, or a file it names
    static constexpr int kStopped = 128;
};

/// Prints what is wrong and gives the status back.
[[nodiscard]] int complain(const foundation::Error& error, int status);

/// The end of a command that a signal has stopped.
[[nodiscard]] int stoppedBy(int signal);

/// Each prints what it makes on stdout, and what is wrong on stderr, and gives the exit status.
[[nodiscard]] int run(const PerformCommand& command);
[[nodiscard]] int run(const FrameCommand& command);
[[nodiscard]] int run(const StripCommand& command);
[[nodiscard]] int run(const SheetCommand& command);
[[nodiscard]] int run(const ListCommand& command);
[[nodiscard]] int run(const WindowCommand& command);
[[nodiscard]] int run(const TextCommand& command);

/// The whole program: parses the arguments (without the program's name) and runs what they ask for.
[[nodiscard]] int runCommandLine(std::vector<std::string> arguments);

} // namespace zelvo::app
