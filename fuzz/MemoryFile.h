// SPDX-License-Identifier: MIT
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace zelvo::fuzz {

/// Calls with the path of a file that holds the bytes, and is only in memory. For readers that need a
/// path.
template <class Call> void withFile(const std::uint8_t* data, std::size_t size, Call call) {
    const int file = memfd_create("input", 0);
    if (file < 0)
        return;
    if (write(file, data, size) == static_cast<ssize_t>(size))
        call("/proc/self/fd/" + std::to_string(file));
    close(file);
}

} // namespace zelvo::fuzz
