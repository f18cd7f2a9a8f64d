// SPDX-License-Identifier: MIT
#pragma once

#include <tl/expected.hpp>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::foundation {

struct JsonMember;

/// A JSON value with its line, so that error messages can point to it.
struct JsonValue {
    enum class Kind { null, boolean, number, string, array, object };

    Kind kind = Kind::null;
    int line = 1; ///< starts at 1; for arrays and objects, the line of the opening bracket
    bool boolean = false;
    double number = 0;
    std::string string; ///< UTF-8
    std::vector<JsonValue> items;
    std::vector<JsonMember> members; ///< in the order of the text; a key can occur twice
};

struct JsonMember {
    std::string key;
    int line = 1;
    JsonValue value;
};

/// An error in a text file, with its line.
struct Problem {
    int line = 1;
    std::string text;

    friend bool operator==(const Problem&, const Problem&) = default;
};

/// Limits for foreign text: far more than a performance or scene needs, but fast to read.
inline constexpr std::size_t kMaxJsonBytes = 16UL * 1024 * 1024;
inline constexpr int kMaxJsonDepth = 32; ///< nested brackets
inline constexpr std::size_t kMaxJsonValues = 500'000;
inline constexpr std::size_t kMaxJsonKeys = 1000; ///< in one object

/// Reads strict JSON (RFC 8259) in UTF-8. A syntax error or a broken limit is returned as one
/// problem. Numbers are read exactly; one too small for a double is 0.
[[nodiscard]] tl::expected<JsonValue, Problem> parseJson(std::string_view text);

/// For messages: "a number", "an object" …
[[nodiscard]] std::string_view kindName(JsonValue::Kind kind);

} // namespace zelvo::foundation
