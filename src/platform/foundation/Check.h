// SPDX-License-Identifier: MIT
#pragma once

#include <fmt/format.h>

#include <string_view>

// For programming errors. CHECK is also in release builds: if the condition is false, it prints one
// line with file, line and message to stderr and ends the process (abort). Do not use it for errors
// that a user can cause; those are a Result (Result.h).
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
