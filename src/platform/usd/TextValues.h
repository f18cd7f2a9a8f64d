// SPDX-License-Identifier: MIT
#pragma once

#include "platform/usd/Limits.h"
#include "platform/usd/TextScanner.h"
#include "platform/usd/Value.h"

#include <string>
#include <string_view>

namespace zelvo::usd {

/// A path that may be relative, made absolute: `anchor` is the path of the prim that it stands in.
[[nodiscard]] std::string absolutePath(std::string_view path, std::string_view anchor);

/// Reads the value of an attribute. `typeName` decides between whole and other numbers and about
/// the order of a quaternion's parts. std::monostate for a dictionary, or if the budget is used up.
[[nodiscard]] Value readTextValue(TextScanner& scanner, std::string_view typeName, Budget& budget);

/// Skips a value of any kind.
void skipTextValue(TextScanner& scanner);

/// One path, a list of paths, or None.
[[nodiscard]] StringList readTextPaths(TextScanner& scanner, std::string_view anchor);
/// One text, a list of texts, or None.
[[nodiscard]] StringList readTextStrings(TextScanner& scanner);
/// One reference, a list of references, or None.
[[nodiscard]] std::vector<Reference> readTextReferences(TextScanner& scanner);

} // namespace zelvo::usd
