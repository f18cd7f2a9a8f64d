// SPDX-License-Identifier: MIT
#include "platform/foundation/Json.h"

#include <fmt/format.h>
#include <rapidjson/reader.h>

#include <QLocale>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace zelvo::foundation {

namespace {

using Stream = rapidjson::InsituStringStream;

/// Finds the line of an offset. Offsets must be ascending, so that the text is scanned only once.
class LineCounter {
public:
    explicit LineCounter(std::string_view whole)
        : text(whole) {}

    [[nodiscard]] int at(std::size_t offset) {
        const auto end = std::min(offset, text.size());
        if (end < counted) {
            counted = 0;
            line = 1;
        }
        const auto part = text.substr(counted, end - counted);
        line += static_cast<int>(std::count(part.begin(), part.end(), '\n'));
        counted = end;
        return line;
    }

private:
    std::string_view text;
    std::size_t counted = 0;
    int line = 1;
};

/// The exponent of a zero: "E9" in "-0.00E9". Empty for other numbers and for other texts.
[[nodiscard]] std::string_view exponentOfZero(std::string_view number) {
    const auto at = number.find_first_of("eE");
    if (at == std::string_view::npos || number.find_first_not_of("-0.") != at ||
        number.find('0') > at)
        return {};
    auto digits = number.substr(at + 1);
    if (digits.starts_with('+') || digits.starts_with('-'))
        digits.remove_prefix(1);
    const bool isWhole =
        !digits.empty() && digits.find_first_not_of("0123456789") == std::string_view::npos;
    return isWhole ? number.substr(at) : std::string_view{};
}

/// Replaces exponents of zeros by blanks, because the library reports them as too large.
void blankExponentsOfZeros(std::string& text) {
    bool isInString = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"')
            isInString = !isInString;
        if (isInString && text[i] == '\\')
            ++i;
        if (isInString || text[i] != '0')
            continue;
        const auto end = std::min(text.find_first_not_of("0123456789.eE+-", i), text.size());
        const auto begin = text.find_last_not_of("0123456789.eE+-", i) + 1; // npos + 1 is 0
        const auto count = exponentOfZero(std::string_view(text).substr(begin, end - begin)).size();
        text.replace(end - count, count, count, ' ');
        i = end - 1;
    }
}

/// Builds the tree from the parser's events. `open` holds the containers that have begun but not
/// ended; at their end they are moved into their parents, so that no address must stay valid.
class TreeBuilder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, TreeBuilder> {
public:
    TreeBuilder(Stream& source, LineCounter& counter)
        : stream(source)
        , lines(counter) {}

    // The parser requires these names.
    // NOLINTBEGIN(readability-identifier-naming)
    bool Null() { return add(make(JsonValue::Kind::null)); }

    bool Bool(bool value) {
        auto made = make(JsonValue::Kind::boolean);
        made.boolean = value;
        return add(std::move(made));
    }

    /// Numbers come as text, because the library's conversion is not exact.
    bool RawNumber(const char* chars, rapidjson::SizeType length, bool) {
        auto made = make(JsonValue::Kind::number);
        made.number = QLocale::c().toDouble(QLatin1String(chars, static_cast<qsizetype>(length)));
        return std::isinf(made.number) ? refuse("not JSON: a number is too big")
                                       : add(std::move(made));
    }

    bool String(const char* chars, rapidjson::SizeType length, bool) {
        auto made = make(JsonValue::Kind::string);
        made.string.assign(chars, length);
        return add(std::move(made));
    }

    bool Key(const char* chars, rapidjson::SizeType length, bool) {
        auto& members = open.back().members;
        if (members.size() == kMaxJsonKeys)
            return refuse(fmt::format("an object has more than {} keys", kMaxJsonKeys));
        members.push_back({std::string(chars, length), currentLine(), {}});
        return true;
    }

    bool StartObject() { return begin(JsonValue::Kind::object); }

    bool StartArray() { return begin(JsonValue::Kind::array); }

    bool EndObject(rapidjson::SizeType) { return end(); }

    bool EndArray(rapidjson::SizeType) { return end(); }

    // NOLINTEND(readability-identifier-naming)

    JsonValue root;
    std::string refusal; ///< why parsing was stopped, if not by a syntax error

private:
    bool refuse(std::string why) {
        refusal = std::move(why);
        return false;
    }

    [[nodiscard]] int currentLine() { return lines.at(stream.Tell()); }

    [[nodiscard]] JsonValue make(JsonValue::Kind kind) {
        JsonValue value;
        value.kind = kind;
        value.line = currentLine();
        return value;
    }

    bool begin(JsonValue::Kind kind) {
        if (open.size() >= kMaxJsonDepth)
            return refuse(fmt::format("brackets are nested more than {} deep", kMaxJsonDepth));
        open.push_back(make(kind));
        return true;
    }

    bool end() {
        auto done = std::move(open.back());
        open.pop_back();
        return add(std::move(done));
    }

    bool add(JsonValue value) {
        if (++count > kMaxJsonValues)
            return refuse(fmt::format("the file has more than {} values", kMaxJsonValues));
        if (open.empty()) {
            root = std::move(value);
        } else if (open.back().kind == JsonValue::Kind::array) {
            open.back().items.push_back(std::move(value));
        } else {
            open.back().members.back().value = std::move(value);
        }
        return true;
    }

    Stream& stream;
    LineCounter& lines;
    std::vector<JsonValue> open;
    std::size_t count = 0;
};

struct Explanation {
    rapidjson::ParseErrorCode code;
    std::string_view text;
};

// clang-format off
constexpr auto kExplanations = std::to_array<Explanation>({
    {rapidjson::kParseErrorDocumentEmpty,                 "the file is empty"                           },
    {rapidjson::kParseErrorDocumentRootNotSingular,
     "there is more text behind the end of the first value"                                             },
    {rapidjson::kParseErrorValueInvalid,                  "a value is expected here"                    },
    {rapidjson::kParseErrorObjectMissName,
     "a key in double quotes is expected here (is there a comma too many?)"                             },
    {rapidjson::kParseErrorObjectMissColon,               "a colon is expected behind the key"          },
    {rapidjson::kParseErrorObjectMissCommaOrCurlyBracket, "a comma or a closing } is missing"           },
    {rapidjson::kParseErrorArrayMissCommaOrSquareBracket, "a comma or a closing ] is missing"           },
    {rapidjson::kParseErrorStringUnicodeEscapeInvalidHex,
     "\\u must be followed by four hexadecimal digits"                                                  },
    {rapidjson::kParseErrorStringUnicodeSurrogateInvalid,
     "a surrogate pair in the text is incomplete"                                                       },
    {rapidjson::kParseErrorStringEscapeInvalid,           "unknown escape in a text"                    },
    {rapidjson::kParseErrorStringMissQuotationMark,       "a text lacks its closing quote"              },
    {rapidjson::kParseErrorStringInvalidEncoding,
     "a text is not UTF-8 or holds a raw control character"                                             },
    {rapidjson::kParseErrorNumberTooBig,                  "a number is too big"                         },
    {rapidjson::kParseErrorNumberMissFraction,            "a digit is expected behind the decimal point"},
    {rapidjson::kParseErrorNumberMissExponent,            "a digit is expected in the exponent"         },
});

// clang-format on

[[nodiscard]] std::string explain(rapidjson::ParseErrorCode code) {
    const auto* const found =
        std::find_if(kExplanations.begin(), kExplanations.end(), [&](const auto& row) {
            return row.code == code;
        });
    return fmt::format(
        "not JSON: {}", found != kExplanations.end() ? found->text : "this cannot be understood");
}

} // namespace

tl::expected<JsonValue, Problem> parseJson(std::string_view text) {
    if (text.size() > kMaxJsonBytes) {
        return tl::unexpected(Problem{
            1, fmt::format("the file is larger than {} MiB", kMaxJsonBytes / (1024 * 1024))});
    }
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());

    // In place, because the library's own stack does arithmetic on a null pointer.
    constexpr unsigned kFlags = rapidjson::kParseInsituFlag |
                                rapidjson::kParseNumbersAsStringsFlag |
                                rapidjson::kParseValidateEncodingFlag;
    std::string scratch(text);
    blankExponentsOfZeros(scratch);
    Stream stream(scratch.data());
    LineCounter lines(text);
    TreeBuilder builder(stream, lines);
    rapidjson::Reader reader;
    if (reader.Parse<kFlags>(stream, builder).IsError()) {
        return tl::unexpected(Problem{
            lines.at(reader.GetErrorOffset()),
            builder.refusal.empty() ? explain(reader.GetParseErrorCode()) : builder.refusal});
    }
    if (stream.Tell() < text.size()) // at a zero byte, which the library takes for the end
        return tl::unexpected(Problem{
            lines.at(stream.Tell()), explain(rapidjson::kParseErrorDocumentRootNotSingular)});
    return std::move(builder.root);
}

std::string_view kindName(JsonValue::Kind kind) {
    constexpr auto kNames = std::to_array<std::string_view>(
        {"null", "true or false", "a number", "a text", "a list", "an object"});
    return kNames.at(static_cast<std::size_t>(kind));
}

} // namespace zelvo::foundation
