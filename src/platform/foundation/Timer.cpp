// SPDX-License-Identifier: MIT
#include "platform/foundation/RunLoop.h"

#include <utility>

namespace zelvo::foundation {

Timer::Timer(Timer&& other) noexcept
    : invalidator(std::exchange(other.invalidator, {})) {}

Timer& Timer::operator=(Timer&& other) noexcept {
    if (this == &other)
        return *this;
    invalidate();
    invalidator = std::exchange(other.invalidator, {});
    return *this;
}

Timer::~Timer() {
    invalidate();
}

void Timer::invalidate() {
    if (const auto end = std::exchange(invalidator, {}))
        end();
}

} // namespace zelvo::foundation
