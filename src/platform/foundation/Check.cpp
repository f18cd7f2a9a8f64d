// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"

#include <cstdio>
#include <cstdlib>

namespace zelvo::foundation {

void failCheck(const char* file, int line, std::string_view message) {
    fmt::print(stderr, "{}:{}: {}\n", file, line, message);
    std::fflush(stderr);
    std::abort();
}

} // namespace zelvo::foundation
