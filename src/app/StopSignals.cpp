// SPDX-License-Identifier: MIT
#include "app/StopSignals.h"

#include <pthread.h>

#include <csignal>
#include <utility>

namespace zelvo::app {

namespace {

/// Wakes the waiting thread at the end of its life; nothing else sends it.
constexpr int kWakeSignal = SIGUSR1;

[[nodiscard]] sigset_t awaited() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGINT, SIGTERM, kWakeSignal})
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
        int signal = 0;
        if (sigwait(&set, &signal) != 0 || signal == kWakeSignal)
            continue;
        int none = 0;
        if (first.compare_exchange_strong(none, signal)) {
            onStop();
            continue;
        }
        (void)std::signal(signal, SIG_DFL);
        pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
        (void)std::raise(signal);
    }
}

} // namespace zelvo::app
