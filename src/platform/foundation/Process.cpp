// SPDX-License-Identifier: MIT
#include "platform/foundation/Process.h"

#include "platform/foundation/Console.h"

#include <fmt/format.h>
#include <unistd.h>

#include <QMessageLogContext>
#include <QString>

#include <array>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <new>
#include <utility>

namespace zelvo::foundation {

namespace {

constexpr int kFailed = 1;

/// Must not allocate memory.
[[noreturn]] void endWithoutMemory() {
    constexpr std::string_view kLine =
        "zelvo: there is not enough memory; close other programs, or make a smaller picture or "
        "movie\n";
    [[maybe_unused]] const auto written = write(STDERR_FILENO, kLine.data(), kLine.size());
    std::_Exit(kFailed);
}

/// Libraries throw if they get no memory.
[[noreturn]] void endUncaught() {
    try {
        if (const auto thrown = std::current_exception())
            std::rethrow_exception(thrown);
    } catch (const std::bad_alloc&) {
        endWithoutMemory();
    } catch (...) {
        std::abort();
    }
    std::abort();
}

/// Qt aborts after a fatal message, so that one must be shown.
void takeQtMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtFatalMsg)
        logLine("zelvo: " + text.toStdString());
}

} // namespace

void prepareProcess() {
    std::set_new_handler(&endWithoutMemory);
    std::set_terminate(&endUncaught);
    // Writing beyond the size limit of files then returns an error instead of ending the process.
    (void)std::signal(SIGXFSZ, SIG_IGN);
    // Show messages of Qt and Mesa if somebody has asked for them.
    if (std::getenv("QT_LOGGING_RULES") == nullptr)
        qInstallMessageHandler(&takeQtMessage);
    // clang-format off
    constexpr auto kQuiet = std::to_array<std::pair<const char*, const char*>>({
        {"LIBGL_DEBUG",   "quiet" },
        {"EGL_LOG_LEVEL", "fatal" },
        {"MESA_DEBUG",    "silent"},
    });
    // clang-format on
    for (const auto& [name, value] : kQuiet)
        setenv(name, value, 0); // NOLINT(concurrency-mt-unsafe): before any thread
}

void endWithoutResource(std::string_view what) {
    logLine(fmt::format(
        "zelvo: {}; install the program anew, or set ZELVO_RESOURCES to the folder of its "
        "resources",
        what));
    std::_Exit(kFailed);
}

} // namespace zelvo::foundation
