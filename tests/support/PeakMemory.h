// SPDX-License-Identifier: MIT
#pragma once

#include <sys/resource.h>

namespace zelvo::test {

/// The most memory that this process has held so far.
inline long peakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

} // namespace zelvo::test
