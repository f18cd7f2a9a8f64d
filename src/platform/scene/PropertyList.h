// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::scene {

/// A value of a property list: a string, a number, an array or a dictionary.
struct PropertyValue {
    struct Entry;

    enum class Kind { dictionary, array, string, number };

    Kind kind = Kind::dictionary;
    std::string text;          ///< for strings
    double number = 0;         ///< always finite
    std::vector<Entry> values; ///< in arrays the keys are empty

    [[nodiscard]] static PropertyValue string(std::string text);
    [[nodiscard]] static PropertyValue array(std::vector<PropertyValue> items);
    [[nodiscard]] static PropertyValue dictionary(std::vector<Entry> entries);

    /// A dictionary's value; null if the key is missing.
    [[nodiscard]] const PropertyValue* find(std::string_view key) const;
};

struct PropertyValue::Entry {
    std::string key;
    PropertyValue value;
};

/// Reads an XML property list with a dictionary as its root. Limits: 64 KiB, 12 levels, 1000
/// values. Errors: `malformed`, `tooLarge`, `unsupported` (dates, data), with the line.
[[nodiscard]] foundation::Result<PropertyValue> readPropertyList(std::string_view xml);
/// The same for a file. More errors: `notFound`, `unreadable`. All messages start with the file's
/// name.
[[nodiscard]] foundation::Result<PropertyValue>
readPropertyListFile(const std::filesystem::path& file);

} // namespace zelvo::scene
