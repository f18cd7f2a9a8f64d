// SPDX-License-Identifier: MIT
#include "app/ProgramRun.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace zelvo::app {

namespace {

constexpr const char* kOut = "stdout.txt";
constexpr const char* kErr = "stderr.txt";

void redirect(int descriptor, const std::string& file) {
    const int opened = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(opened, descriptor);
}

/// Waits for a file of the program in a watched folder.
void waitForFile(int watch) {
    alignas(inotify_event) std::array<char, 4096> events{};
    while (true) {
        const auto end = read(watch, events.data(), events.size());
        ASSERT_GT(end, 0);
        for (ssize_t at = 0; at < end;) {
            const auto* const event =
                reinterpret_cast<const inotify_event*>(&events.at(static_cast<std::size_t>(at)));
            if (!isOfTheSanitizer(event->name))
                return;
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
}

} // namespace

bool isOfTheSanitizer(const std::string& name) {
    return name.starts_with("tsan.");
}

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string Program::write(const std::string& name, const std::string& text) const {
    std::ofstream(home() / name, std::ios::binary) << text;
    return path(name);
}

pid_t Program::start(const Arguments& arguments, long maxFileBytes) const {
    const pid_t child = fork();
    if (child != 0)
        return child;
    redirect(STDOUT_FILENO, path(kOut));
    redirect(STDERR_FILENO, path(kErr));
    for (const char* const name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        setenv(name, home().c_str(), 1);
    setenv("TMPDIR", path("tmp").c_str(), 1);
    if (maxFileBytes > 0) {
        const auto bytes = static_cast<rlim_t>(maxFileBytes);
        const rlimit limit{bytes, bytes};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    std::vector<char*> argv{const_cast<char*>(ZELVO_BINARY)};
    for (const auto& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    execv(ZELVO_BINARY, argv.data());
    _exit(127);
}

Ending Program::end(pid_t child) const {
    int state = 0;
    waitpid(child, &state, 0);
    Ending ending;
    ending.status = WIFEXITED(state) ? WEXITSTATUS(state) : 128 + WTERMSIG(state);
    ending.out = contentOf(path(kOut));
    ending.err = contentOf(path(kErr));
    return ending;
}

Ending Program::run(const Arguments& arguments, long maxFileBytes) const {
    return end(start(arguments, maxFileBytes));
}

Ending Program::runAndSignal(
    const Arguments& arguments, const std::filesystem::path& watched, int signal) const {
    std::filesystem::create_directories(watched);
    const int watch = inotify_init1(IN_CLOEXEC);
    inotify_add_watch(watch, watched.c_str(), IN_CREATE);
    const pid_t child = start(arguments, 0);
    waitForFile(watch);
    kill(child, signal);
    close(watch);
    return end(child);
}

} // namespace zelvo::app
