// SPDX-License-Identifier: MIT
#pragma once

#include "app/JsonTree.h"
#include "platform/image/Color.h"

#include <glm/vec3.hpp>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::app {

struct Range {
    double least;
    double most;
};

/// Collects what is wrong with a file.
class Problems {
public:
    void add(int line, std::string text);

    [[nodiscard]] bool isEmpty() const { return list.empty(); }

    /// Sorted by line, cut off at the limit with a last line that says how many more there are.
    [[nodiscard]] std::vector<Problem> sorted(std::size_t limit) const;

private:
    std::vector<Problem> list;
};

/// Reads the members of one JSON object by type. What is wrong goes to the problems, and the member
/// counts as absent.
class ObjectReader {
public:
    /// `name` names the object in messages ("cue", "node TX1"). A value that is no object is a
    /// problem, and so are keys given twice and keys that are neither known nor for later.
    struct Keys {
        std::vector<std::string> known;
        std::vector<std::string> later; ///< reserved: "not supported yet"
    };

    ObjectReader(const JsonValue& value, std::string name, const Keys& keys, Problems& found);

    [[nodiscard]] const JsonValue* find(std::string_view key) const;

    [[nodiscard]] bool has(std::string_view key) const { return find(key) != nullptr; }

    [[nodiscard]] int lineOf(std::string_view key) const;

    /// The value if it is of the kind.
    [[nodiscard]] const JsonValue* find(std::string_view key, JsonValue::Kind kind) const;

    [[nodiscard]] std::optional<double> number(std::string_view key, Range range) const;
    [[nodiscard]] std::optional<bool> boolean(std::string_view key) const;
    [[nodiscard]] std::optional<std::string> string(std::string_view key) const;
    [[nodiscard]] std::optional<image::Color> color(std::string_view key) const;
    [[nodiscard]] std::optional<glm::dvec3> vector(std::string_view key, Range range) const;

    /// One of the names; `what` says of what kind they are ("font").
    [[nodiscard]] std::optional<std::string>
    choice(std::string_view key, std::string_view what, std::span<const std::string> names) const;

private:
    const JsonValue& object;
    std::string place;
    Problems& problems;
};

/// `unknown button "Lef In" in tab IN1; did you mean "Left In"?` Without a name that is near, the
/// whole list is told where it is short.
[[nodiscard]] std::string unknownName(
    std::string_view what,
    std::string_view given,
    std::span<const std::string> names,
    std::string_view place = {});

} // namespace zelvo::app
