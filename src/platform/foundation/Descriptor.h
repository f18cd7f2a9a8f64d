// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <utility>

namespace zelvo::foundation {

/// Owns a file descriptor and closes it at the end.
class Descriptor {
public:
    explicit Descriptor(int opened = -1)
        : number(opened) {}

    Descriptor(Descriptor&& other) noexcept
        : number(std::exchange(other.number, -1)) {}

    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number, other.number);
        return *this;
    }

    ~Descriptor() {
        if (isOpen())
            close(number);
    }

    [[nodiscard]] bool isOpen() const { return number >= 0; }

    [[nodiscard]] int get() const { return number; }

private:
    int number;
};

} // namespace zelvo::foundation
