// SPDX-License-Identifier: MIT
#include "app/StopSignals.h"

#include "platform/foundation/Console.h"
#include "platform/foundation/TemporaryFolder.h"

#include <pthread.h>

#include <cerrno>
#include <csignal>
#include <ctime>
#include <utility>

namespace zelvo::app {

namespace {

/// Wakes the waiting thread so that it can end. Used for nothing else.
constexpr int kWakeSignal = SIGUSR1;

/// The time that the process has to end by itself.
constexpr timespec kGrace{.tv_sec = 2, .tv_nsec = 0};

[[nodiscard]] sigset_t awaited() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, kWakeSignal})
        sigaddset(&set, signal);
    return set;
}

} // namespace

StopSignals::StopSignals(std::function<void()> callback)
    : onStop(std::move(callback)) {
    const auto set = awaited();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    waiter = std::thread([this] { wait(); });
}

StopSignals::~StopSignals() {
    isEnding = true;
    pthread_kill(waiter.native_handle(), kWakeSignal);
    waiter.join();
    const auto set = awaited();
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

void StopSignals::wait() {
    const auto set = awaited();
    while (!isEnding) {
        const int signal =
            first == 0 ? sigwaitinfo(&set, nullptr) : sigtimedwait(&set, nullptr, &kGrace);
        const bool isTimeOver = signal < 0 && errno == EAGAIN;
        if (signal == kWakeSignal || (signal < 0 && !isTimeOver))
            continue;
        int none = 0;
        if (!isTimeOver && first.compare_exchange_strong(none, signal))
            onStop();
        else
            endAtOnce();
    }
}

void StopSignals::endAtOnce() const {
    foundation::logLine("zelvo: stopped");
    foundation::TemporaryFolder::removeAll();
    (void)std::signal(first, SIG_DFL);
    const auto set = awaited();
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
    (void)std::raise(first);
}

} // namespace zelvo::app
