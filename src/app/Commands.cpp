// SPDX-License-Identifier: MIT
#include "app/Commands.h"

#include "app/Listed.h"
#include "platform/foundation/Console.h"

#include <fmt/format.h>

#include <string_view>
#include <utility>

namespace zelvo::app {

namespace {

void print(std::string_view text) {
    (void)std::fwrite(text.data(), 1, text.size(), stdout);
}

} // namespace

int complain(const foundation::Error& error, int status) {
    foundation::logLine("zelvo: " + error.message);
    return status;
}

int stoppedBy(int signal) {
    foundation::logLine("zelvo: stopped before it was done");
    return ExitStatus::kStopped + signal;
}

int run(const ListCommand& command) {
    for (const auto& line : listed(command.what))
        print(line + "\n");
    return ExitStatus::kDone;
}

int run(const TextCommand& command) {
    print(command.text);
    return ExitStatus::kDone;
}

int runCommandLine(std::vector<std::string> arguments) {
    const auto command = parseCommandLine(std::move(arguments));
    if (!command)
        return complain(command.error(), ExitStatus::kWrong);
    return std::visit([](const auto& given) { return run(given); }, *command);
}

} // namespace zelvo::app
