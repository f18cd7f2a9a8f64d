// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "platform/foundation/Result.h"

namespace zelvo::app {

/// The exit status of a command. If a signal stopped it, the status is kStopped plus the signal's
/// number.
struct ExitStatus {
    static constexpr int kDone = 0;
    static constexpr int kFailed = 1; ///< the export failed, or no window could be opened
    static constexpr int kWrong = 2;  ///< the command line or a file it names is wrong
    static constexpr int kStopped = 128;
};

/// Prints the error and returns `status`.
[[nodiscard]] int complain(const foundation::Error& error, int status);

/// Prints that a signal stopped the command, and returns its exit status.
[[nodiscard]] int stoppedBy(int signal);

/// Each of these prints its result on stdout and errors on stderr, and returns the exit status.
[[nodiscard]] int run(const PerformCommand& command);
[[nodiscard]] int run(const FrameCommand& command);
[[nodiscard]] int run(const StripCommand& command);
[[nodiscard]] int run(const BatchCommand& command);
[[nodiscard]] int run(const SheetCommand& command);
[[nodiscard]] int run(const ListCommand& command);
[[nodiscard]] int run(const InspectCommand& command);
[[nodiscard]] int run(const WaveformCommand& command);
[[nodiscard]] int run(const WindowCommand& command);
[[nodiscard]] int run(const TextCommand& command);

/// The whole program: parses the arguments (without the program's name) and runs the command.
[[nodiscard]] int runCommandLine(std::vector<std::string> arguments);

} // namespace zelvo::app
