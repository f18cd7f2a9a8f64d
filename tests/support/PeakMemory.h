// SPDX-License-Identifier: MIT
#pragma once

#include <sys/resource.h>

namespace zelvo::test {

/// The most memory that this process has held so far. Always 0 under the sanitizers, because they
/// keep what was freed.
inline long peakKilobytes() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return 0;
#else
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
#endif
}

} // namespace zelvo::test
