// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Json.h"

#include <tl/expected.hpp>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::foundation {

/// A row of a table, with the line where it begins; a quoted field can go on over several lines.
struct CsvRow {
    int line = 1;
    std::vector<std::string> fields;

    friend bool operator==(const CsvRow&, const CsvRow&) = default;
};

// Limits for foreign text.
inline constexpr std::size_t kMaxCsvBytes = 16UL * 1024 * 1024;
inline constexpr std::size_t kMaxCsvRows = 10'000;
inline constexpr std::size_t kMaxCsvColumns = 1000;
inline constexpr std::size_t kMaxCsvFieldBytes = 64UL * 1024;

/// Reads comma-separated values (RFC 4180) in UTF-8, with or without a byte order mark. Lines end
/// with LF, CR LF or CR; empty lines are left out. Spreadsheets of some languages write semicolons or
/// tabs in place of commas: of these three, the one that comes first in the first row separates the
/// fields. A quote within an unquoted field stands for itself.
[[nodiscard]] tl::expected<std::vector<CsvRow>, Problem> parseCsv(std::string_view text);

} // namespace zelvo::foundation
