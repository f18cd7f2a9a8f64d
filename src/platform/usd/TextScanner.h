// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zelvo::usd {

/// Takes a text layer apart into words, numbers, texts and paths. Blanks and comments in front are
/// skipped. After the first fault nothing more is found, so a caller may check at its end.
class TextScanner {
public:
    explicit TextScanner(std::string_view whole)
        : text(whole) {}

    /// The next character; 0 at the end.
    [[nodiscard]] char peek();
    /// Takes the character if it is the next one.
    bool accept(char wanted);
    /// The same, but a fault if it is another one.
    bool expect(char wanted);
    /// Takes the word if it is the next one.
    bool acceptWord(std::string_view wanted);

    /// Letters, digits, `_`, `:` and whatever is not ASCII; empty if there is none.
    [[nodiscard]] std::string_view word();
    /// Also `inf` and `nan`; nothing if the next thing is no number.
    [[nodiscard]] std::optional<double> number();
    /// In one or three quotation marks of either kind.
    [[nodiscard]] std::string string();
    /// In @ or @@@.
    [[nodiscard]] std::string assetPath();
    /// In < >.
    [[nodiscard]] std::string path();
    /// Whether the next thing is a text.
    [[nodiscard]] bool isAtString();

    /// Skips semicolons and blanks; true if a body ends here or nothing more comes.
    [[nodiscard]] bool isAtEndOf(char closing);

    /// Remembers the first fault.
    void fail(std::string_view what);

    [[nodiscard]] bool hasFailed() const { return !fault.empty(); }

    /// "line 12: what is wrong"; empty if nothing is.
    [[nodiscard]] const std::string& message() const { return fault; }

private:
    void skipBlanks();
    [[nodiscard]] std::string until(std::string_view closing);

    std::string_view text;
    std::size_t at = 0;
    std::string fault;
};

} // namespace zelvo::usd
