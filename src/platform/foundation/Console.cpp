// SPDX-License-Identifier: MIT
#include "platform/foundation/Console.h"

#include <cstdio>
#include <string>

namespace zelvo::foundation {

void logLine(std::string_view line) {
    // A single write, so that lines of two threads are never mixed.
    std::string whole(line);
    whole += '\n';
    std::fwrite(whole.data(), 1, whole.size(), stderr);
}

} // namespace zelvo::foundation
