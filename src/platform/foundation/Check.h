// SPDX-License-Identifier: MIT
#pragma once

#include <fmt/format.h>

#include <string_view>

// Broken contracts. CHECK stays in release builds: a false condition prints one line with file,
// line and message on stderr and ends the process (abort). What a user can cause is never checked
// this way; it is a Result (Result.h).
//
//     CHECK(index < names.size(), "no scene has index {}", index);
//     FATAL("init(coder:) has not been implemented");

namespace zelvo::foundation {

[[noreturn]] void failCheck(const char* file, int line, std::string_view message);

} // namespace zelvo::foundation

#define CHECK(condition, ...)                                                                      \
    do {                                                                                           \
        if (!(condition)) [[unlikely]] {                                                           \
            ::zelvo::foundation::failCheck(__FILE__, __LINE__, fmt::format(__VA_ARGS__));          \
        }                                                                                          \
    } while (false)

#define FATAL(...) ::zelvo::foundation::failCheck(__FILE__, __LINE__, fmt::format(__VA_ARGS__))
