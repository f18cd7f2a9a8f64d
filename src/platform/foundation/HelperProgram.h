// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace zelvo::foundation {

/// Work for a helper: a small program that comes with this one. It does what may hang or crash, such
/// as drawing a hostile file. It must limit its own time and memory.
struct HelperTask {
    std::string program; ///< name, without a folder
    std::vector<std::string> arguments{};
    std::span<const std::uint8_t> input;
    std::size_t maxOutputBytes = 0;
    std::function<bool()> isStopped{}; ///< asked fifty times a second, on the same thread
};

/// A helper that has ended.
struct HelperEnding {
    std::vector<std::uint8_t> output;
    int exitStatus = 0; ///< if no signal ended it
    int signal = 0;     ///< that ended it; 0: none
};

/// Where a helper is: beside the program, in ../libexec/zelvo relative to it, in the installed
/// libexec folder, or in the build tree. Empty if it is missing.
[[nodiscard]] std::filesystem::path helperProgram(const std::string& name);

/// Runs a helper with the input on its stdin, and waits for its end. It sees no other open files of
/// this process, and its stderr goes nowhere. Any thread, also of a process with many. Errors:
/// `unavailable` (it cannot be started), `tooLarge` (its output), `cancelled`; then it is killed.
[[nodiscard]] Result<HelperEnding> runHelper(const HelperTask& task);

} // namespace zelvo::foundation
