// SPDX-License-Identifier: MIT
#include "platform/object/reading/MTLPictures.h"

#include "platform/object/reading/Words.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace zelvo::object {

namespace {

enum class Takes { word, oneNumber, twoNumbers, upToThreeNumbers };

struct Option {
    std::string_view name;
    Takes takes;
};

// clang-format off
constexpr auto kOptions = std::to_array<Option>({
    {"-blendu",     Takes::word            },
    {"-blendv",     Takes::word            },
    {"-cc",         Takes::word            },
    {"-clamp",      Takes::word            },
    {"-imfchan",    Takes::word            },
    {"-type",       Takes::word            },
    {"-colorspace", Takes::word            },
    {"-bm",         Takes::oneNumber       },
    {"-boost",      Takes::oneNumber       },
    {"-texres",     Takes::oneNumber       },
    {"-mm",         Takes::twoNumbers      },
    {"-o",          Takes::upToThreeNumbers},
    {"-s",          Takes::upToThreeNumbers},
    {"-t",          Takes::upToThreeNumbers},
});

// clang-format on

[[nodiscard]] const Option* optionNamed(std::string_view word) {
    const std::string name = lowered(word);
    const auto* found = std::ranges::find(kOptions, name, &Option::name);
    return found != kOptions.end() ? found : nullptr;
}

/// The words of a line, and where each of them begins.
struct Split {
    std::string_view text;
    std::vector<std::string_view> words;

    explicit Split(std::string_view line)
        : text(line) {
        constexpr std::size_t kMaxWords = 200; // the rest belongs to the last word
        for (Words each(line); words.size() < kMaxWords && !each.rest().empty();) {
            const std::size_t at = each.rest().find_first_not_of(' ');
            if (at == std::string_view::npos)
                break;
            const std::string_view rest = each.rest().substr(at);
            words.push_back(rest.substr(0, rest.find(' ')));
            each = Words(rest.substr(words.back().size()));
        }
    }

    /// From the first word up to before the second, with the blanks between them.
    [[nodiscard]] std::string_view between(std::size_t first, std::size_t end) const {
        const char* const from = words[first].data();
        const std::string_view& last = words[end - 1];
        return {from, static_cast<std::size_t>(last.data() + last.size() - from)};
    }
};

/// The whole word as a number.
[[nodiscard]] std::optional<float> wholeNumber(std::string_view word) {
    constexpr std::string_view kSigns = "+-.,0123456789eE";
    if (word.find_first_not_of(kSigns) != std::string_view::npos)
        return std::nullopt;
    const auto number = Words(word).number();
    return number ? std::optional(static_cast<float>(*number)) : std::nullopt;
}

class Reader {
public:
    explicit Reader(std::string_view text)
        : split(text) {}

    [[nodiscard]] MTLPicture read() {
        while (at < count() && readOption(1)) {
        }
        const std::size_t first = at;
        while (at < count() && (at == first || optionNamed(split.words[at]) == nullptr))
            ++at;
        if (at > first)
            picture.name = split.between(first, at);
        while (at < count() && readOption(0)) {
        }
        return picture;
    }

private:
    [[nodiscard]] std::size_t count() const { return split.words.size(); }

    /// Reads an option with its values. `kept` words must be left for the name.
    bool readOption(std::size_t kept) {
        const Option* option = optionNamed(split.words[at]);
        if (option == nullptr || at + 1 + kept > count())
            return false;
        ++at;
        if (option->takes == Takes::word) {
            if (at + kept < count())
                setWord(option->name, lowered(split.words[at++]));
            return true;
        }
        const std::size_t most = option->takes == Takes::oneNumber    ? 1
                                 : option->takes == Takes::twoNumbers ? 2
                                                                      : 3;
        std::vector<float> numbers;
        while (numbers.size() < most && at + kept < count()) {
            const auto number = wholeNumber(split.words[at]);
            if (!number)
                break;
            numbers.push_back(*number);
            ++at;
        }
        setNumbers(option->name, numbers);
        return true;
    }

    void setWord(std::string_view option, const std::string& word) {
        if (option == "-clamp")
            picture.isClamped = word == "on";
        if (option == "-imfchan")
            picture.channel = word[0];
    }

    void setNumbers(std::string_view option, const std::vector<float>& numbers) {
        if (numbers.empty())
            return;
        if (option == "-bm")
            picture.strength = numbers[0];
        if (option == "-mm") {
            picture.base = numbers[0];
            picture.gain = numbers.size() > 1 ? numbers[1] : 1;
        }
        if (option == "-o")
            picture.offset = {numbers[0], numbers.size() > 1 ? numbers[1] : 0};
        if (option == "-s")
            picture.scale = {numbers[0], numbers.size() > 1 ? numbers[1] : 1};
    }

    Split split;
    std::size_t at = 0;
    MTLPicture picture;
};

} // namespace

MTLPicture readMTLPicture(std::string_view text) {
    return Reader(Words(text).name()).read();
}

} // namespace zelvo::object
