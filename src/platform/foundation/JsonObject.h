// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Json.h"

#include <glm/vec2.hpp>
#include <glm/vec3.hpp>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::foundation {

/// Both ends are allowed; `most` may be infinite.
struct Range {
    double least;
    double most;
};

/// Collects what is wrong with a file, up to a number that nobody reads to the end.
class Problems {
public:
    void add(int line, std::string text);

    [[nodiscard]] bool isEmpty() const { return list.empty(); }

    /// More is not taken: reading on is a waste of time.
    [[nodiscard]] bool isFull() const;

    /// Sorted by line, cut off at the limit with a last line that says how many more there are.
    [[nodiscard]] std::vector<Problem> sorted(std::size_t limit) const;

private:
    std::vector<Problem> list;
};

/// Reads a JSON object key by key. Every getter gives nothing for an absent key, and nothing plus a
/// problem for a value of the wrong kind or range. finish() tells the keys that nobody asked
/// for, so that no misspelt one is lost, and those that stand twice.
///
///     JsonObject object(value, "node TX1", problems);
///     if (const auto depth = object.number("depth", {1, 150})) style.depth = *depth;
///     object.finish();    // unknown key "dept" in node TX1; did you mean "depth"?
class JsonObject {
public:
    /// `place` names the object in messages ("cue", "nodes[2]"). A value that is no object is a
    /// problem.
    JsonObject(const JsonValue& value, std::string place, Problems& found);

    /// The value itself, null if absent, for what is more than a plain value.
    [[nodiscard]] const JsonValue* find(std::string_view key);
    /// The value if it is of the kind.
    [[nodiscard]] const JsonValue* find(std::string_view key, JsonValue::Kind kind);

    [[nodiscard]] bool has(std::string_view key) { return find(key) != nullptr; }

    /// The object's own line for a key that is not there.
    [[nodiscard]] int lineOf(std::string_view key);

    [[nodiscard]] std::optional<double> number(std::string_view key, Range range);
    [[nodiscard]] std::optional<int> integer(std::string_view key, Range range);
    [[nodiscard]] std::optional<bool> boolean(std::string_view key);
    [[nodiscard]] std::optional<std::string> string(std::string_view key);
    [[nodiscard]] std::optional<glm::dvec2> vector2(std::string_view key, Range range);
    [[nodiscard]] std::optional<glm::dvec3> vector3(std::string_view key, Range range);

    /// One of the names; `what` says of what kind they are ("font").
    [[nodiscard]] std::optional<std::string>
    choice(std::string_view key, std::string_view what, std::span<const std::string> names);

    /// The value of the row of a table of {name, value} that a text names.
    template <class Table> [[nodiscard]] auto oneOf(std::string_view key, const Table& table) {
        std::vector<std::string> names;
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

    /// A problem with the value of a key: `"zFar" in light must be beyond zNear`.
    void report(std::string_view key, std::string_view what);

    void finish();

private:
    [[nodiscard]] std::string placeOf(std::string_view key, std::size_t index) const;
    [[nodiscard]] const JsonValue* numbers(std::string_view key, std::size_t count, Range range);

    const JsonValue& object;
    std::string place;
    Problems& problems;
    std::vector<std::string> asked; ///< each once, in the order they are told in
};

/// `unknown button "Lef In" in tab IN1; did you mean "Left In"?` Without a name that is near, the
/// whole list is told where it is short.
[[nodiscard]] std::string unknownName(
    std::string_view what,
    std::string_view given,
    std::span<const std::string> names,
    std::string_view place = {});

/// Foreign text as a message can hold it: in quotes, short, without line breaks and control
/// characters.
[[nodiscard]] std::string quoted(std::string_view text);

} // namespace zelvo::foundation
