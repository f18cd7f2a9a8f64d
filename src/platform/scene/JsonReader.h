// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <glm/vec2.hpp>
#include <glm/vec3.hpp>
#include <rapidjson/document.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::scene {

/// The first thing found wrong in a document; what is read after it does not matter any more.
class JsonFault {
public:
    void report(const std::string& path, const std::string& message);

    [[nodiscard]] const std::optional<foundation::Error>& error() const { return error_; }

private:
    std::optional<foundation::Error> error_;
};

struct Range {
    double least;
    double most;
};

/// Reads a JSON object key by key. Every getter gives nothing for an absent key, and nothing plus a
/// fault for a value of the wrong type or range. finish() faults the keys nobody asked for, so that
/// no misspelt one is lost.
///
///     JsonObject object(value, "nodes[2]", fault);
///     if (const auto opacity = object.number("opacity", {0, 1})) node.opacity = *opacity;
///     object.finish();                      // "nodes[2].opcity: unknown key"
class JsonObject {
public:
    /// `where` is what faults call the object, empty for the document itself.
    JsonObject(const rapidjson::Value& value, std::string where, JsonFault& shared);

    [[nodiscard]] std::optional<double> number(std::string_view key, Range range);
    [[nodiscard]] std::optional<int> integer(std::string_view key, Range range);
    [[nodiscard]] std::optional<bool> boolean(std::string_view key);
    [[nodiscard]] std::optional<std::string> text(std::string_view key);
    [[nodiscard]] std::optional<glm::vec3> vector3(std::string_view key);
    [[nodiscard]] std::optional<glm::vec2> vector2(std::string_view key);

    /// The row of a table of {name, value} pairs that a text names.
    template <class Table> [[nodiscard]] auto oneOf(std::string_view key, const Table& table) {
        std::optional<decltype(table[0].value)> found;
        const std::optional<std::string> name = text(key);
        if (!name)
            return found;
        std::string choices;
        for (const auto& row : table) {
            if (row.name == *name)
                found = row.value;
            choices += choices.empty() ? row.name : ", " + std::string(row.name);
        }
        if (!found)
            report(key, "must be one of " + choices);
        return found;
    }

    /// The value itself, null if absent, for what is more than a plain value.
    [[nodiscard]] const rapidjson::Value* value(std::string_view key);
    /// Calls back for each entry of an array, with its path.
    void forEach(
        std::string_view key,
        const std::function<void(const rapidjson::Value&, const std::string&)>& entry);

    [[nodiscard]] std::string pathOf(std::string_view key) const;
    void report(std::string_view key, const std::string& message);
    void finish();

private:
    [[nodiscard]] std::optional<std::vector<float>> floats(std::string_view key, unsigned count);

    const rapidjson::Value& object;
    std::string path;
    JsonFault& fault;
    std::vector<std::string_view> asked;
};

/// Parses a document's text. Errors: tooLarge, malformed with the line.
[[nodiscard]] foundation::Result<rapidjson::Document> parseJson(const std::string& text);

} // namespace zelvo::scene
