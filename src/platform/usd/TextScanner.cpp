// SPDX-License-Identifier: MIT
#include "platform/usd/TextScanner.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <limits>

namespace zelvo::usd {
namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isWordPart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c) || c == '_' || c == ':' ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// The character that a letter behind a backslash stands for.
char unescaped(char letter) {
    switch (letter) {
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    default:
        return letter;
    }
}

} // namespace

void TextScanner::skipBlanks() {
    while (at < text.size()) {
        if (isBlank(text[at])) {
            ++at;
        } else if (text[at] == '#') {
            at = std::min(text.find('\n', at), text.size());
        } else {
            return;
        }
    }
}

char TextScanner::peek() {
    skipBlanks();
    return at < text.size() ? text[at] : '\0';
}

bool TextScanner::accept(char wanted) {
    if (peek() != wanted || at >= text.size())
        return false;
    ++at;
    return true;
}

bool TextScanner::expect(char wanted) {
    if (accept(wanted))
        return true;
    fail(fmt::format("'{}' is missing", wanted));
    return false;
}

bool TextScanner::acceptWord(std::string_view wanted) {
    const std::size_t before = at;
    if (word() == wanted)
        return true;
    at = before;
    return false;
}

std::string_view TextScanner::word() {
    skipBlanks();
    const std::size_t start = at;
    while (at < text.size() && isWordPart(text[at]))
        ++at;
    return text.substr(start, at - start);
}

std::optional<double> TextScanner::number() {
    const char first = peek();
    if (!isDigit(first) && first != '-' && first != '+' && first != '.' && first != 'i' &&
        first != 'n')
        return std::nullopt;
    const char* start = text.data() + at + (first == '+' ? 1 : 0);
    double value = 0;
    const auto [end, error] = std::from_chars(start, text.data() + text.size(), value);
    const bool isWord = first == 'i' || first == 'n'; // longer than inf and nan
    if (error == std::errc::invalid_argument ||
        (isWord && end != text.data() + text.size() && isWordPart(*end)))
        return std::nullopt;
    if (error == std::errc::result_out_of_range)
        value = 0;
    at = static_cast<std::size_t>(end - text.data());
    return value;
}

bool TextScanner::isAtString() {
    const char next = peek();
    return next == '"' || next == '\'';
}

std::string TextScanner::string() {
    if (!isAtString()) {
        fail("a text is missing");
        return {};
    }
    const std::string triple(3, text[at]);
    const std::string_view closing =
        text.substr(at).starts_with(triple) ? std::string_view(triple) : text.substr(at, 1);
    at += closing.size();
    std::string result;
    while (at < text.size() && !text.substr(at).starts_with(closing)) {
        if (text[at] == '\\' && at + 1 < text.size()) {
            result += unescaped(text[++at]);
        } else {
            result += text[at];
        }
        ++at;
    }
    if (at >= text.size())
        fail("a text has no end");
    at = std::min(at + closing.size(), text.size());
    return result;
}

std::string TextScanner::until(std::string_view closing) {
    const std::size_t end = text.find(closing, at);
    if (end == std::string_view::npos) {
        fail("a path has no end");
        return {};
    }
    std::string result(text.substr(at, end - at));
    at = end + closing.size();
    return result;
}

std::string TextScanner::assetPath() {
    constexpr std::string_view kTriple = "@@@";
    if (!expect('@'))
        return {};
    if (!text.substr(at - 1).starts_with(kTriple))
        return until("@");
    at += 2;
    std::string result = until(kTriple);
    // In this form, and only here, a backslash keeps three signs from being the end.
    while (!hasFailed() && result.ends_with('\\')) {
        result.pop_back();
        result += kTriple;
        result += until(kTriple);
    }
    return result;
}

std::string TextScanner::path() {
    return expect('<') ? until(">") : std::string();
}

bool TextScanner::isAtEndOf(char closing) {
    while (accept(';')) {
    }
    return hasFailed() || peek() == '\0' || peek() == closing;
}

void TextScanner::fail(std::string_view what) {
    if (hasFailed())
        return;
    const auto line =
        1 + std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n');
    fault = fmt::format("line {}: {}", line, what);
    at = text.size();
}

} // namespace zelvo::usd
