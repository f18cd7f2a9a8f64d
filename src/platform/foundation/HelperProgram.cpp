// SPDX-License-Identifier: MIT
#include "platform/foundation/HelperProgram.h"

#include "platform/foundation/Descriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <initializer_list>
#include <optional>
#include <utility>

namespace zelvo::foundation {

namespace {

constexpr int kAskMs = 20;

/// The input as a file without a name: a pipe would block both sides when it is full.
Descriptor fileOf(std::span<const std::uint8_t> input) {
    Descriptor file(memfd_create("zelvo-input", MFD_CLOEXEC));
    while (file.isOpen() && !input.empty()) {
        const ssize_t count = write(file.get(), input.data(), input.size());
        if (count <= 0)
            return Descriptor();
        input = input.subspan(static_cast<std::size_t>(count));
    }
    if (file.isOpen())
        lseek(file.get(), 0, SEEK_SET);
    return file;
}

struct Pipe {
    Descriptor reading;
    Descriptor writing;
};

Pipe makePipe() {
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return {Descriptor(), Descriptor()};
    constexpr int kBytes = 1 << 20; // fewer switches between the two processes
    (void)fcntl(ends[0], F_SETPIPE_SZ, kBytes);
    return {Descriptor(ends[0]), Descriptor(ends[1])};
}

/// What the child gets from this process: three descriptors, and signals as at the start of a
/// program.
class SpawnSettings {
public:
    SpawnSettings(int input, int output) {
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
        sigset_t none;
        sigemptyset(&none);
        sigset_t usual;
        sigemptyset(&usual);
        for (const int signal : {SIGALRM, SIGPIPE, SIGXCPU, SIGXFSZ})
            sigaddset(&usual, signal);
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setsigdefault(&attributes, &usual);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }

    ~SpawnSettings() {
        posix_spawn_file_actions_destroy(&files);
        posix_spawnattr_destroy(&attributes);
    }

    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    [[nodiscard]] std::optional<pid_t>
    start(const std::filesystem::path& program, std::vector<std::string> arguments) const {
        std::string name = program.string();
        std::vector<char*> given{name.data()};
        for (std::string& argument : arguments)
            given.push_back(argument.data());
        given.push_back(nullptr);
        pid_t child = 0;
        const int failure =
            posix_spawn(&child, program.c_str(), &files, &attributes, given.data(), environ);
        return failure == 0 ? std::optional(child) : std::nullopt;
    }

private:
    posix_spawn_file_actions_t files{};
    posix_spawnattr_t attributes{};
};

/// A running child, which is killed if nobody has waited for its end.
class Child {
public:
    explicit Child(pid_t started)
        : process(started) {}

    ~Child() {
        if (process == 0)
            return;
        kill(process, SIGKILL);
        (void)end();
    }

    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Waits; returns the state that waitpid tells.
    int end() {
        int state = 0;
        while (waitpid(process, &state, 0) < 0 && errno == EINTR) {
        }
        process = 0;
        return state;
    }

private:
    pid_t process;
};

Result<std::vector<std::uint8_t>> outputFrom(int reading, const HelperTask& task) {
    constexpr std::size_t kStep = 1U << 20U;
    std::vector<std::uint8_t> output;
    while (true) {
        if (task.isStopped && task.isStopped())
            return fail(Cause::cancelled, "nobody waits for it any more");
        pollfd source{reading, POLLIN, 0};
        if (poll(&source, 1, kAskMs) <= 0)
            continue;
        const std::size_t before = output.size();
        output.resize(before + kStep);
        const ssize_t count = read(reading, output.data() + before, kStep);
        output.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count == 0)
            return output;
        if (output.size() > task.maxOutputBytes)
            return fail(Cause::tooLarge, task.program + " answers without end");
    }
}

} // namespace

std::filesystem::path helperProgram(const std::string& name) {
    std::error_code ignored;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
    for (const std::filesystem::path& place : std::initializer_list<std::filesystem::path>{
             folder,
             folder.parent_path() / "libexec/zelvo",
             ZELVO_INSTALLED_HELPERS,
             ZELVO_BUILT_HELPERS}) {
        if (std::filesystem::is_regular_file(place / name, ignored))
            return place / name;
    }
    return {};
}

Result<HelperEnding> runHelper(const HelperTask& task) {
    const auto program = helperProgram(task.program);
    if (program.empty())
        return fail(Cause::unavailable, "the program lacks " + task.program + "; install it anew");
    const Descriptor input = fileOf(task.input);
    Pipe pipe = makePipe();
    if (!input.isOpen() || !pipe.reading.isOpen())
        return fail(Cause::unavailable, "there is not enough memory; close other programs");
    const auto started =
        SpawnSettings(input.get(), pipe.writing.get()).start(program, task.arguments);
    if (!started)
        return fail(Cause::unavailable, program.string() + " cannot be started");
    pipe.writing = Descriptor(); // so that the output ends with the child
    Child child(*started);
    return outputFrom(pipe.reading.get(), task).map([&child](std::vector<std::uint8_t> output) {
        const int state = child.end();
        return HelperEnding{
            std::move(output),
            WIFEXITED(state) ? WEXITSTATUS(state) : 0,
            WIFSIGNALED(state) ? WTERMSIG(state) : 0};
    });
}

} // namespace zelvo::foundation
