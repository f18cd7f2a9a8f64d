// SPDX-License-Identifier: MIT
#include "platform/foundation/Csv.h"

#include <fmt/format.h>

#include <QUtf8StringView>

#include <optional>
#include <utility>

namespace zelvo::foundation {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kSeparators = ",;\t";

/// The separator that comes first in the first row; a comma if there is none.
[[nodiscard]] char separatorOf(std::string_view text) {
    bool isQuoted = false;
    for (const char c : text) {
        if (c == '"')
            isQuoted = !isQuoted;
        else if (!isQuoted && kSeparators.find(c) != std::string_view::npos)
            return c;
        else if (!isQuoted && kLineEnds.find(c) != std::string_view::npos)
            break;
    }
    return ',';
}

class CsvParser {
public:
    explicit CsvParser(std::string_view whole)
        : text(whole)
        , separator(separatorOf(whole)) {}

    [[nodiscard]] tl::expected<std::vector<CsvRow>, Problem> rows() {
        std::vector<CsvRow> result;
        while (at < text.size()) {
            if (isLineEnd()) {
                skipLineEnd();
                continue;
            }
            if (result.size() == kMaxCsvRows)
                return fail(fmt::format("the table has more than {} rows", kMaxCsvRows));
            CsvRow row{line, {}};
            readRow(row);
            if (problem)
                return tl::unexpected(*problem);
            result.push_back(std::move(row));
        }
        return result;
    }

private:
    [[nodiscard]] tl::unexpected<Problem> fail(std::string why) const {
        return tl::unexpected(Problem{line, std::move(why)});
    }

    [[nodiscard]] bool isLineEnd() const {
        return kLineEnds.find(text[at]) != std::string_view::npos;
    }

    void skipLineEnd() {
        at += text.substr(at).starts_with(kLineEnds) ? 2 : 1;
        ++line;
    }

    void readRow(CsvRow& row) {
        while (!problem) {
            if (row.fields.size() == kMaxCsvColumns) {
                problem =
                    Problem{row.line, fmt::format("a row has more than {} fields", kMaxCsvColumns)};
                return;
            }
            row.fields.push_back(field());
            if (at == text.size())
                return;
            if (isLineEnd()) {
                skipLineEnd();
                return;
            }
            ++at; // the separator
        }
    }

    [[nodiscard]] std::string field() {
        const int begin = line;
        auto result = at < text.size() && text[at] == '"' ? quotedField() : plainField();
        if (!problem && result.size() > kMaxCsvFieldBytes) {
            problem = Problem{
                begin, fmt::format("a field has more than {} KiB", kMaxCsvFieldBytes / 1024)};
        }
        return result;
    }

    [[nodiscard]] std::string plainField() {
        const auto from = at;
        while (at < text.size() && text[at] != separator && !isLineEnd())
            ++at;
        return std::string(text.substr(from, at - from));
    }

    [[nodiscard]] std::string quotedField() {
        const int begin = line;
        std::string result;
        ++at;
        while (at < text.size()) {
            if (text[at] != '"') {
                takeQuoted(result);
            } else if (text.substr(at).starts_with("\"\"")) {
                result += '"';
                at += 2;
            } else {
                ++at;
                checkEnd();
                return result;
            }
        }
        problem = Problem{begin, "a field lacks its closing quote"};
        return result;
    }

    /// A character of a quoted field, or a whole end of a line.
    void takeQuoted(std::string& field) {
        const auto from = at;
        if (isLineEnd())
            skipLineEnd();
        else
            ++at;
        field += text.substr(from, at - from);
    }

    void checkEnd() {
        if (at < text.size() && text[at] != separator && !isLineEnd())
            problem = Problem{
                line, "there is text behind a closing quote; write two quotes for one in a text"};
    }

    std::string_view text;
    char separator;
    std::size_t at = 0;
    int line = 1;
    std::optional<Problem> problem;
};

} // namespace

tl::expected<std::vector<CsvRow>, Problem> parseCsv(std::string_view text) {
    if (text.size() > kMaxCsvBytes) {
        return tl::unexpected(
            Problem{1, fmt::format("the table is larger than {} MiB", kMaxCsvBytes / 1024 / 1024)});
    }
    if (!QUtf8StringView(text.data(), static_cast<qsizetype>(text.size())).isValidUtf8())
        return tl::unexpected(Problem{1, "the table is not UTF-8; save it as CSV in UTF-8"});
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    return CsvParser(text).rows();
}

} // namespace zelvo::foundation
