// SPDX-License-Identifier: MIT
#include "platform/foundation/ProcessMark.h"

#include <fmt/format.h>
#include <unistd.h>

#include <charconv>
#include <fstream>
#include <sstream>

namespace zelvo::foundation {

namespace {

/// Empty if there is no such process, or if it has ended and only waits to be collected.
std::string markOf(int process) {
    std::ifstream in(fmt::format("/proc/{}/stat", process));
    std::string line;
    std::getline(in, line);
    // The second field is the program's name in brackets, which may hold anything.
    const auto bracket = line.rfind(')');
    if (bracket == std::string::npos)
        return {};
    std::istringstream fields(line.substr(bracket + 1));
    std::string state;
    fields >> state;
    constexpr int kFieldsBetween = 18; // from the state, which is field 3, to the start, field 22
    std::string field;
    for (int i = 0; i < kFieldsBetween; ++i)
        fields >> field;
    std::string start;
    fields >> start;
    const bool hasEnded = state == "Z" || state == "X";
    return hasEnded || start.empty() ? std::string() : fmt::format("{} {}", process, start);
}

} // namespace

std::string processMark() {
    return markOf(getpid());
}

bool isRunning(const std::string& mark) {
    int process = 0;
    const auto read = std::from_chars(mark.data(), mark.data() + mark.size(), process);
    return read.ec == std::errc() && process > 0 && markOf(process) == mark;
}

} // namespace zelvo::foundation
