// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::scene {

/// A value of a property list: a tree of dictionaries and arrays with strings and numbers.
struct PropertyValue {
    struct Entry;

    enum class Kind { dictionary, array, string, number };

    Kind kind = Kind::dictionary;
    std::string text;          ///< of a string
    double number = 0;         ///< finite
    std::vector<Entry> values; ///< an array's keys are empty

    [[nodiscard]] static PropertyValue string(std::string text);
    [[nodiscard]] static PropertyValue array(std::vector<PropertyValue> items);
    [[nodiscard]] static PropertyValue dictionary(std::vector<Entry> entries);

    /// Of a dictionary; null if there is none of that key.
    [[nodiscard]] const PropertyValue* find(std::string_view key) const;
};

struct PropertyValue::Entry {
    std::string key;
    PropertyValue value;
};

/// XML property lists of at most 64 KiB, 12 levels and 1000 values, whose root is a dictionary.
/// Errors: malformed, tooLarge, unsupported (dates, data), with the line.
[[nodiscard]] foundation::Result<PropertyValue> readPropertyList(std::string_view xml);
/// The same from a file; errors also: notFound, unreadable. They begin with the file's name.
[[nodiscard]] foundation::Result<PropertyValue>
readPropertyListFile(const std::filesystem::path& file);

} // namespace zelvo::scene
