// SPDX-License-Identifier: MIT
#include "app/BatchTable.h"

#include "platform/foundation/Csv.h"
#include "platform/foundation/JsonObject.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <utility>

namespace zelvo::app {

namespace {

using document::Setting;
using foundation::CsvRow;
using foundation::Problem;

constexpr std::string_view kMovieColumn = "movie";
constexpr std::string_view kExtension = ".mov";
constexpr std::size_t kMaxNameBytes = 200;
constexpr std::size_t kMaxTextBytes = 60; ///< of a text in a name

using Keys = std::vector<std::string>;

[[nodiscard]] std::string trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t";
    const auto from = text.find_first_not_of(kBlanks);
    if (from == std::string_view::npos)
        return {};
    return std::string(text.substr(from, text.find_last_not_of(kBlanks) - from + 1));
}

[[nodiscard]] tl::expected<Keys, Problem> keysOf(const CsvRow& header) {
    Keys keys;
    std::set<std::string> seen;
    for (const std::string& field : header.fields) {
        const std::string key = trimmed(field);
        if (key.empty())
            return tl::unexpected(
                Problem{header.line, fmt::format("column {} has no name", keys.size() + 1)});
        if (!seen.insert(key).second)
            return tl::unexpected(Problem{
                header.line, fmt::format("there are two columns {}", foundation::quoted(key))});
        keys.push_back(key);
    }
    return keys;
}

/// A text as part of a file name that every disk takes.
[[nodiscard]] std::string forFileName(std::string text) {
    for (char& c : text) {
        constexpr std::string_view kRefused = R"(/\:*?"<>|)";
        if (static_cast<unsigned char>(c) < 0x20U || kRefused.find(c) != std::string_view::npos)
            c = '-';
    }
    if (text.size() > kMaxTextBytes) {
        auto end = kMaxTextBytes;
        while ((static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
            --end; // not within a character
        text.resize(end);
    }
    return trimmed(text);
}

/// For example "07 EMMA.mov".
[[nodiscard]] std::string numberedName(std::size_t number, std::size_t count, const BatchRow& row) {
    const auto isText = [](const Setting& setting) {
        return (setting.key == "text" || setting.key.ends_with(".text")) && !setting.value.empty();
    };
    const auto text = std::ranges::find_if(row.settings, isText);
    const auto width = std::max<std::size_t>(2, std::to_string(count).size());
    auto name = fmt::format("{:0{}}", number, width);
    if (text != row.settings.end())
        name.append(" ").append(forFileName(text->value));
    return trimmed(name).append(kExtension);
}

[[nodiscard]] bool isMovieName(const std::string& name) {
    std::string extension = std::filesystem::path(name).extension().string();
    std::ranges::transform(extension, extension.begin(), [](unsigned char c) {
        return static_cast<char>(std::tolower(c));
    });
    return extension == kExtension;
}

void takeMovieName(const std::string& given, BatchRow& row) {
    row.movie = trimmed(given);
    const bool isPath = row.movie.find('/') != std::string::npos || row.movie.starts_with('.');
    if (isPath || row.movie.size() > kMaxNameBytes || row.movie.find('\0') != std::string::npos) {
        row.problem = fmt::format(
            "\"movie\" must be a file name of at most {} bytes without a folder, not {}",
            kMaxNameBytes,
            foundation::quoted(row.movie));
    } else if (!row.movie.empty() && !isMovieName(row.movie)) {
        row.movie += kExtension;
    }
}

[[nodiscard]] BatchRow
rowOf(const CsvRow& fields, const Keys& keys, const std::filesystem::path& folder) {
    BatchRow row;
    row.line = fields.line;
    if (fields.fields.size() != keys.size()) {
        row.problem = fmt::format(
            "the row has {} fields, and the first row has {}", fields.fields.size(), keys.size());
        return row;
    }
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const std::string& value = fields.fields[i];
        if (keys[i] == kMovieColumn)
            takeMovieName(value, row);
        else if (!value.empty() || keys[i].ends_with(".text"))
            row.settings.push_back({fmt::format("column {}", keys[i]), keys[i], value, folder});
    }
    return row;
}

/// Two rows must not write the same file.
void findSameMovies(std::vector<BatchRow>& rows) {
    std::map<std::string, int> lines;
    for (BatchRow& row : rows) {
        if (!row.problem.empty())
            continue;
        const auto [former, isNew] = lines.emplace(row.movie, row.line);
        if (!isNew)
            row.problem = fmt::format(
                "the movie {} is already that of line {}",
                foundation::quoted(row.movie),
                former->second);
    }
}

} // namespace

tl::expected<std::vector<BatchRow>, Problem>
readBatchTable(std::string_view text, const std::filesystem::path& folder) {
    const auto table = foundation::parseCsv(text);
    if (!table)
        return tl::unexpected(table.error());
    if (table->size() < 2)
        return tl::unexpected(
            Problem{1, "the table needs a row of keys, and a row for each movie"});
    const auto keys = keysOf(table->front());
    if (!keys)
        return tl::unexpected(keys.error());
    std::vector<BatchRow> rows;
    const auto count = table->size() - 1;
    for (std::size_t number = 1; number <= count; ++number) {
        rows.push_back(rowOf((*table)[number], *keys, folder));
        if (rows.back().movie.empty())
            rows.back().movie = numberedName(number, count, rows.back());
    }
    findSameMovies(rows);
    return rows;
}

} // namespace zelvo::app
