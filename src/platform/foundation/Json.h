// SPDX-License-Identifier: MIT
#pragma once

#include <tl/expected.hpp>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::foundation {

struct JsonMember;

/// A JSON value that knows the line it stands on, so that a reader of its content can point there.
struct JsonValue {
    enum class Kind { null, boolean, number, string, array, object };

    Kind kind = Kind::null;
    int line = 1; ///< from 1; of the opening bracket for arrays and objects
    bool boolean = false;
    double number = 0;
    std::string string; ///< UTF-8
    std::vector<JsonValue> items;
    std::vector<JsonMember> members; ///< in the order of the text; a key may stand there twice
};

struct JsonMember {
    std::string key;
    int line = 1;
    JsonValue value;
};

/// Something wrong with a text file, with the line to look at.
struct Problem {
    int line = 1;
    std::string text;

    friend bool operator==(const Problem&, const Problem&) = default;
};

/// Limits on foreign text: far above any performance or scene, and few enough to be read in no
/// time.
inline constexpr std::size_t kMaxJsonBytes = 16UL * 1024 * 1024;
inline constexpr int kMaxJsonDepth = 32; ///< of brackets
inline constexpr std::size_t kMaxJsonValues = 500'000;
inline constexpr std::size_t kMaxJsonKeys = 1000; ///< of one object

/// Reads strict JSON (RFC 8259) in UTF-8. What breaks its grammar or a limit is one problem.
/// Numbers are read exactly; one too small for a double is 0.
[[nodiscard]] tl::expected<JsonValue, Problem> parseJson(std::string_view text);

/// "a number", "an object" …
[[nodiscard]] std::string_view kindName(JsonValue::Kind kind);

} // namespace zelvo::foundation
