// SPDX-License-Identifier: MIT
#include "platform/object/reading/Words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace zelvo::object {

namespace {

/// Beyond this, a number is an exporter's fault.
constexpr double kMaxNumber = 1e30;

[[nodiscard]] bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// A number with a decimal comma, up to the word's end.
[[nodiscard]] double numberWithComma(std::string_view word) {
    std::array<char, 64> text{};
    const std::size_t count = word.copy(text.data(), text.size());
    *std::find(text.begin(), text.end(), ',') = '.';
    double value = 0;
    (void)std::from_chars(text.data(), text.data() + count, value);
    return value;
}

} // namespace

void Words::skipBlanks() {
    const std::size_t at = left.find_first_not_of(' ');
    left.remove_prefix(at == std::string_view::npos ? left.size() : at);
}

bool Words::isAtEnd() {
    skipBlanks();
    return left.empty() || left[0] == '#';
}

std::string_view Words::next() {
    if (isAtEnd())
        return {};
    const std::string_view word = left.substr(0, left.find(' '));
    left.remove_prefix(word.size());
    return word;
}

std::optional<double> Words::number() {
    if (isAtEnd())
        return std::nullopt;
    const char* first = left.data();
    const char* const last = first + left.size();
    if (*first == '+')
        ++first;
    double value = 0;
    const auto [end, error] = std::from_chars(first, last, value);
    if (error == std::errc::invalid_argument)
        return std::nullopt;
    if (error == std::errc::result_out_of_range)
        value = 0; // far too large, or so small that it makes no difference
    if (end != last && *end != ' ') {
        const std::string_view word(
            first, static_cast<std::size_t>(std::find(end, last, ' ') - first));
        const auto at = static_cast<std::size_t>(end - first);
        if (*end == ',' && at + 1 < word.size() && isDigit(word[at + 1])) {
            constexpr std::size_t kMaxDigits = 60;
            value = at < kMaxDigits ? numberWithComma(word) : value;
        } else if (*end == '#') {
            value = 0; // as "1.#QNAN"
        }
    }
    left.remove_prefix(static_cast<std::size_t>(std::find(end, last, ' ') - left.data()));
    return std::abs(value) <= kMaxNumber ? value : 0;
}

std::string_view Words::name() const {
    std::string_view text = left;
    for (std::size_t at = text.find('#'); at != std::string_view::npos;
         at = text.find('#', at + 1)) {
        if (at == 0 || text[at - 1] == ' ') {
            text = text.substr(0, at);
            break;
        }
    }
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string lowered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return result;
}

} // namespace zelvo::object
