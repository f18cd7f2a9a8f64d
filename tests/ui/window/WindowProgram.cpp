// SPDX-License-Identifier: MIT
#include "ui/window/WindowProgram.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>

namespace zelvo::test {

WindowProgram::WindowProgram(const std::string& settings) {
    if (!settings.empty()) {
        const auto config = home() / ".config" / "zelvo";
        std::filesystem::create_directories(config);
        std::ofstream(config / "defaults.json") << settings;
    }
    process = fork();
    if (process != 0)
        return;
    setenv("HOME", home().c_str(), 1);
    for (const char* const name :
         {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
        unsetenv(name);
    setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1", 1); // as with a running screen reader
    execl(ZELVO_BINARY, ZELVO_BINARY, nullptr);
    _exit(127);
}

WindowProgram::~WindowProgram() {
    end();
}

bool WindowProgram::isRunning() const {
    return process > 0 && waitpid(process, nullptr, WNOHANG) == 0;
}

void WindowProgram::end() {
    if (process <= 0)
        return;
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
    process = -1;
}

std::vector<std::filesystem::path>
WindowProgram::files(const std::string& name, const std::string& ending) const {
    std::vector<std::filesystem::path> found;
    std::error_code missing;
    for (const auto& file : std::filesystem::directory_iterator(home() / name, missing)) {
        if (file.path().extension() == ending)
            found.push_back(file.path());
    }
    return found;
}

} // namespace zelvo::test
