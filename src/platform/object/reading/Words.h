// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zelvo::object {

/// Reads a line of TextLines word by word. Words are separated by blanks.
class Words {
public:
    explicit Words(std::string_view line)
        : left(line) {}

    /// The next word; empty at the end, and at a comment (#).
    [[nodiscard]] std::string_view next();

    /// The next word as a number; nothing, and no step, if it does not begin as one. Takes "+1",
    /// ".5", "1.", "1e3", "1,5"; what is not finite ("nan", "-1.#IND") or beyond 1e30 is 0.
    [[nodiscard]] std::optional<double> number();

    /// What is left as a name: it may have blanks, and a # that does not follow a blank.
    [[nodiscard]] std::string_view name() const;

    [[nodiscard]] bool isAtEnd();

    /// What is left, as it stands.
    [[nodiscard]] std::string_view rest() const { return left; }

private:
    void skipBlanks();

    std::string_view left;
};

[[nodiscard]] std::string lowered(std::string_view text);

} // namespace zelvo::object
