// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"

#include <cstdio>
#include <cstdlib>

namespace zelvo::foundation {

void failCheck(std::source_location where, std::string_view message) {
    fmt::print(stderr, "{}:{}: {}\n", where.file_name(), where.line(), message);
    std::fflush(stderr);
    std::abort();
}

} // namespace zelvo::foundation
