// SPDX-License-Identifier: MIT
#include "platform/usd/TextValues.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace zelvo::usd {
namespace {

constexpr std::size_t kLargestTuple = 16; ///< a matrix of 4 x 4

/// Reads items between brackets; a comma may stand behind the last one.
template <class Item> void readList(TextScanner& scanner, char opening, char closing, Item item) {
    if (!scanner.expect(opening))
        return;
    while (!scanner.isAtEndOf(closing)) {
        item();
        if (!scanner.accept(','))
            break;
    }
    static_cast<void>(scanner.isAtEndOf(closing));
    scanner.expect(closing);
}

/// One item, a list of items in brackets, or None.
template <class Item> void readOneOrMany(TextScanner& scanner, Item item) {
    if (scanner.acceptWord("None"))
        return;
    if (scanner.peek() == '[') {
        readList(scanner, '[', ']', item);
    } else {
        item();
    }
}

double readNumber(TextScanner& scanner) {
    if (const auto value = scanner.number())
        return *value;
    const auto word = scanner.word();
    if (word != "true" && word != "false")
        scanner.fail("a number is missing");
    return word == "true" ? 1 : 0;
}

/// Appends the numbers of a tuple, also of one that holds tuples.
void readTuple(TextScanner& scanner, std::vector<double>& numbers) {
    const auto readOne = [&] { numbers.push_back(readNumber(scanner)); };
    readList(scanner, '(', ')', [&] {
        if (scanner.peek() != '(') {
            readOne();
        } else {
            readList(scanner, '(', ')', readOne);
        }
        if (numbers.size() > kLargestTuple)
            scanner.fail("a tuple has too many numbers");
    });
}

bool isWholeType(std::string_view typeName) {
    constexpr auto kWhole = std::to_array<std::string_view>(
        {"bool[]", "uchar[]", "int[]", "uint[]", "int64[]", "uint64[]"});
    return std::ranges::find(kWhole, typeName) != kWhole.end();
}

/// The real part stands first in text.
template <class Number> void putRealPartLast(std::vector<Number>& values) {
    for (std::size_t i = 0; i + 4 <= values.size(); i += 4) {
        const auto first = values.begin() + static_cast<std::ptrdiff_t>(i);
        std::rotate(first, first + 1, first + 4);
    }
}

std::int32_t toInt(double value) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(value))
        return 0;
    return static_cast<std::int32_t>(std::clamp<double>(value, Limits::min(), Limits::max()));
}

class ArrayReader {
public:
    ArrayReader(TextScanner& source, std::string_view type, Budget& limit)
        : scanner(source)
        , typeName(type)
        , budget(limit) {}

    Value read();

private:
    void readItem();
    void readTupleItem();

    TextScanner& scanner;
    std::string_view typeName;
    Budget& budget;
    StringList strings;
    std::vector<double> tuple;
    FloatArray floats;
    IntArray ints;
    bool isWhole = isWholeType(typeName);
};

/// All tuples of an array have the width of the first one.
void ArrayReader::readTupleItem() {
    tuple.clear();
    readTuple(scanner, tuple);
    if (floats.values.empty())
        floats.width = std::max<std::size_t>(tuple.size(), 1);
    if (tuple.size() != floats.width)
        scanner.fail("a tuple has another length than the first one");
    floats.values.insert(floats.values.end(), tuple.begin(), tuple.end());
}

void ArrayReader::readItem() {
    const char next = scanner.peek();
    if (next == '(') {
        readTupleItem();
    } else if (scanner.isAtString()) {
        strings.push_back(scanner.string());
    } else if (next == '@') {
        strings.push_back(scanner.assetPath());
    } else if (next == '<') {
        strings.push_back(scanner.path());
    } else if (isWhole) {
        ints.push_back(toInt(readNumber(scanner)));
    } else {
        floats.values.push_back(static_cast<float>(readNumber(scanner)));
    }
}

Value ArrayReader::read() {
    readList(scanner, '[', ']', [this] { readItem(); });
    const std::uint64_t size =
        (floats.values.size() + ints.size()) * sizeof(float) + strings.size() * sizeof(std::string);
    if (!budget.take(size))
        return {};
    if (!strings.empty())
        return std::move(strings);
    if (isWhole)
        return std::move(ints);
    if (typeName.starts_with("quat"))
        putRealPartLast(floats.values);
    if (floats.values.size() % floats.width != 0)
        return {};
    return std::move(floats);
}

void skipNested(TextScanner& scanner, int depth);
Reference readReference(TextScanner& scanner, int depth);

void skipDictionary(TextScanner& scanner, int depth) {
    scanner.expect('{');
    while (!scanner.isAtEndOf('}')) {
        // "type name =", where the name may be in quotation marks; or "time:" of samples.
        while (!scanner.isAtEndOf('}') && scanner.peek() != '=' && scanner.peek() != ':') {
            const bool isText = scanner.isAtString();
            const std::string text = isText ? scanner.string() : std::string(scanner.word());
            const bool isBrackets = !isText && scanner.accept('[') && scanner.expect(']');
            if (!isText && text.empty() && !isBrackets && !scanner.number())
                scanner.fail("a name is missing");
            if (text.ends_with(':')) // a word takes the colon along
                break;
        }
        if (!scanner.accept('='))
            scanner.accept(':');
        skipNested(scanner, depth + 1);
        scanner.accept(',');
    }
    scanner.expect('}');
}

void skipNested(TextScanner& scanner, int depth) {
    const char next = scanner.peek();
    if (depth > kMaxDepth) {
        scanner.fail("values are nested too deeply");
    } else if (next == '{') {
        skipDictionary(scanner, depth);
    } else if (next == '[' || next == '(') {
        readList(scanner, next, next == '[' ? ']' : ')', [&] { skipNested(scanner, depth + 1); });
    } else if (scanner.isAtString()) {
        static_cast<void>(scanner.string());
    } else if (next == '@' || next == '<') {
        static_cast<void>(readReference(scanner, depth));
    } else if (!scanner.number() && scanner.word().empty()) {
        scanner.fail("a value is missing");
    }
}

/// "(offset = 1; scale = 2)" and the like.
void skipAssignments(TextScanner& scanner, int depth) {
    if (!scanner.accept('('))
        return;
    while (!scanner.isAtEndOf(')')) {
        if (scanner.word().empty())
            scanner.fail("a name is missing");
        scanner.expect('=');
        skipNested(scanner, depth + 1);
        scanner.accept(',');
    }
    scanner.expect(')');
}

Reference readReference(TextScanner& scanner, int depth) {
    Reference reference;
    if (scanner.peek() == '@') {
        reference.asset = scanner.assetPath();
    } else if (scanner.peek() != '<') {
        scanner.fail("a reference is missing");
    }
    if (scanner.peek() == '<')
        reference.prim = scanner.path();
    if (reference.prim == "/")
        reference.prim.clear();
    skipAssignments(scanner, depth);
    return reference;
}

} // namespace

std::string absolutePath(std::string_view path, std::string_view anchor) {
    if (path.empty() || path.starts_with('/'))
        return std::string(path);
    std::string_view base = anchor;
    while (path.starts_with("..")) {
        base = base.substr(0, std::min(base.rfind('/'), base.size()));
        path.remove_prefix(path.starts_with("../") ? 3 : 2);
    }
    std::string result(base == "/" ? std::string_view() : base);
    if (!path.empty() && !path.starts_with('.'))
        result += '/';
    return result += path;
}

Value readTextValue(TextScanner& scanner, std::string_view typeName, Budget& budget) {
    const char next = scanner.peek();
    if (scanner.acceptWord("None"))
        return Blocked{};
    if (next == '[')
        return ArrayReader(scanner, typeName, budget).read();
    if (scanner.isAtString())
        return scanner.string();
    if (next == '@')
        return scanner.assetPath();
    if (next == '<')
        return scanner.path();
    if (next == '{') {
        skipTextValue(scanner);
        return {};
    }
    Numbers numbers;
    if (next == '(') {
        readTuple(scanner, numbers);
    } else {
        numbers.push_back(readNumber(scanner));
    }
    if (typeName.starts_with("quat"))
        putRealPartLast(numbers);
    return numbers;
}

void skipTextValue(TextScanner& scanner) {
    skipNested(scanner, 0);
}

StringList readTextPaths(TextScanner& scanner, std::string_view anchor) {
    StringList paths;
    readOneOrMany(scanner, [&] { paths.push_back(absolutePath(scanner.path(), anchor)); });
    return paths;
}

StringList readTextStrings(TextScanner& scanner) {
    StringList strings;
    readOneOrMany(scanner, [&] {
        strings.push_back(scanner.peek() == '@' ? scanner.assetPath() : scanner.string());
        skipAssignments(scanner, 0);
    });
    return strings;
}

std::vector<Reference> readTextReferences(TextScanner& scanner) {
    std::vector<Reference> references;
    readOneOrMany(scanner, [&] { references.push_back(readReference(scanner, 0)); });
    return references;
}

} // namespace zelvo::usd
