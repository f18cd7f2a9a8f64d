// SPDX-License-Identifier: MIT
#pragma once

#include <malloc.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

namespace zelvo::foundation {

/// For the programs that runHelper starts.

/// Can be raised again.
inline void limitResource(__rlimit_resource resource, rlim_t most) {
    rlimit limits{};
    (void)getrlimit(resource, &limits);
    limits.rlim_cur = most;
    (void)setrlimit(resource, &limits);
}

/// The kernel ends this process when it has used that much memory, and when nobody is left who waits
/// for it. Call it first in main.
inline void limitHelperMemory(rlim_t bytes) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
// A sanitizer reserves terabytes of addresses.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    limitResource(RLIMIT_AS, bytes);
#else
    (void)bytes;
#endif
    limitResource(RLIMIT_CORE, 0);
    // Each heap of a thread would reserve 64 MiB of addresses.
    mallopt(M_ARENA_MAX, 1);
}

/// The same when it uses that much more of the processor, or has slept long. Call it again for each
/// piece of work.
inline void limitHelperTime(unsigned seconds) {
    constexpr unsigned kPatience = 6; // for a machine that has much else to do
    rusage used{};
    (void)getrusage(RUSAGE_SELF, &used);
    const auto before = static_cast<rlim_t>(used.ru_utime.tv_sec + used.ru_stime.tv_sec);
    limitResource(RLIMIT_CPU, before + seconds);
    alarm(seconds * kPatience);
}

} // namespace zelvo::foundation
