// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Json.h"

#include <glm/vec2.hpp>
#include <glm/vec3.hpp>

#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::foundation {

/// Both ends are included; `most` may be infinite.
struct Range {
    double least;
    double most;
};

/// Collects the errors in a file, up to a limit.
class Problems {
public:
    void add(int line, std::string text);

    [[nodiscard]] bool isEmpty() const { return list.empty(); }

    /// True at the limit; stop reading then.
    [[nodiscard]] bool isFull() const;

    /// Sorted by line. If there are more than `limit`, a last line says how many are left out.
    [[nodiscard]] std::vector<Problem> sorted(std::size_t limit) const;

private:
    std::vector<Problem> list;
};

/// Reads a JSON object key by key. A getter returns nothing if the key is missing. It returns
/// nothing and reports a problem if the value has the wrong type or range. finish() reports keys
/// that were never asked for, so that misspelt ones are found, and keys that occur twice.
///
///     JsonObject object(value, "node TX1", problems);
///     if (const auto depth = object.number("depth", {1, 150})) style.depth = *depth;
///     object.finish();    // unknown key "dept" in node TX1; did you mean "depth"?
class JsonObject {
public:
    /// `where` names the object in messages ("cue", "nodes[2]"). It is a problem if the value is
    /// not an object.
    JsonObject(const JsonValue& value, std::string where, Problems& found);

    /// The value itself, for lists and objects; null if missing.
    [[nodiscard]] const JsonValue* find(std::string_view key);
    /// The same if the value has this kind; otherwise null.
    [[nodiscard]] const JsonValue* find(std::string_view key, JsonValue::Kind kind);

    [[nodiscard]] bool has(std::string_view key) { return find(key) != nullptr; }

    /// The line of the key, or of the object if the key is missing.
    [[nodiscard]] int lineOf(std::string_view key);

    [[nodiscard]] std::optional<double> number(std::string_view key, Range range);
    [[nodiscard]] std::optional<int> integer(std::string_view key, Range range);
    [[nodiscard]] std::optional<bool> boolean(std::string_view key);
    [[nodiscard]] std::optional<std::string> string(std::string_view key);
    [[nodiscard]] std::optional<glm::dvec2> vector2(std::string_view key, Range range);
    [[nodiscard]] std::optional<glm::dvec3> vector3(std::string_view key, Range range);

    /// A string that must be one of `names`; `what` says what they are ("font").
    [[nodiscard]] std::optional<std::string>
    choice(std::string_view key, std::string_view what, std::span<const std::string> names);

    /// A string that must be a name in a table of {name, value}. Returns the value.
    template <class Table> [[nodiscard]] auto oneOf(std::string_view key, const Table& table) {
        std::vector<std::string> names;
        names.reserve(std::size(table));
        for (const auto& row : table)
            names.emplace_back(row.name);
        std::optional<decltype(table[0].value)> found;
        const auto name = choice(key, key, names);
        for (const auto& row : table) {
            if (name == row.name)
                found = row.value;
        }
        return found;
    }

    /// Calls back for each entry of a list, with its place ("children[2] of nodes[0] of the
    /// scene").
    template <class Entry> void forEach(std::string_view key, const Entry& entry) {
        const JsonValue* const list = find(key, JsonValue::Kind::array);
        if (list == nullptr)
            return;
        for (std::size_t i = 0; i < list->items.size() && !problems.isFull(); ++i)
            entry(list->items[i], placeOf(key, i));
    }

    [[nodiscard]] std::string placeOf(std::string_view key) const;

    /// Reports a problem with the value of a key: `"zFar" in light must be beyond zNear`.
    void report(std::string_view key, std::string_view what);

    void finish();

private:
    [[nodiscard]] std::string placeOf(std::string_view key, std::size_t index) const;
    [[nodiscard]] const JsonValue* numbers(std::string_view key, std::size_t count, Range range);

    const JsonValue& object;
    std::string place;
    Problems& problems;
    std::vector<std::string> asked; ///< without duplicates, in the order of the messages
};

/// Makes the message `unknown button "Lef In" in tab IN1; did you mean "Left In"?`. If no name is
/// similar and the list is short, it lists all names.
[[nodiscard]] std::string unknownName(
    std::string_view what,
    std::string_view given,
    std::span<const std::string> names,
    std::string_view place = {});

/// Foreign text for messages: in quotes, shortened, without line breaks and control characters.
[[nodiscard]] std::string quoted(std::string_view text);

} // namespace zelvo::foundation
