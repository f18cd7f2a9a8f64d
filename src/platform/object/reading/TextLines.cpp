// SPDX-License-Identifier: MIT
#include "platform/object/reading/TextLines.h"

#include "platform/foundation/WideLoop.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>
#include <memory>
#include <system_error>
#include <utility>

namespace zelvo::object {

namespace {

constexpr std::size_t kBlock = 256U << 10U;

/// Every other control character becomes a blank.
ZELVO_WIDE_LOOP void blankControls(char* bytes, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        bytes[i] = byte < ' ' && byte != '\n' && byte != '\r' ? ' ' : bytes[i];
    }
}

/// Lines that end with CR end with LF, and CR LF loses its CR.
void mendReturns(char* bytes, std::size_t count) {
    char* const last = bytes + count;
    char* at = bytes;
    while ((at = static_cast<char*>(std::memchr(at, '\r', static_cast<std::size_t>(last - at)))) !=
           nullptr) {
        *at = at + 1 < last && at[1] == '\n' ? ' ' : '\n';
        if (++at == last)
            return;
    }
}

/// Turns UTF-16 into UTF-8. Half pairs and a half character at the end are left out.
class WideSource {
public:
    WideSource(ByteSource bytes, bool isBigEndian)
        : source(std::move(bytes))
        , high(isBigEndian ? 0 : 1) {}

    std::size_t operator()(std::span<char> target) {
        constexpr std::size_t kMostBytes = 4; // of one character
        std::size_t used = 0;
        while (used + kMostBytes <= target.size()) {
            const auto unit = nextUnit();
            if (!unit)
                break;
            used += put(*unit, target.subspan(used));
        }
        return used;
    }

private:
    [[nodiscard]] std::optional<std::uint32_t> nextUnit() {
        if (loaded - at < 2)
            load();
        if (loaded - at < 2)
            return std::nullopt;
        const auto byte = [this](std::size_t i) {
            return static_cast<std::uint32_t>(static_cast<unsigned char>(block[at + i]));
        };
        const std::uint32_t unit = byte(high) << 8U | byte(1 - high);
        at += 2;
        return unit;
    }

    void load() {
        std::copy(block.begin() + at, block.begin() + loaded, block.begin());
        loaded -= at;
        at = 0;
        while (loaded < 2) {
            const std::size_t count = source(std::span(block).subspan(loaded));
            if (count == 0)
                return;
            loaded += static_cast<std::uint32_t>(count);
        }
    }

    std::size_t put(std::uint32_t unit, std::span<char> target) {
        constexpr std::uint32_t kFirstHalf = 0xD800;
        constexpr std::uint32_t kSecondHalf = 0xDC00;
        if (unit >= kFirstHalf && unit < kSecondHalf) {
            half = unit;
            return 0;
        }
        std::uint32_t code = unit;
        if (unit >= kSecondHalf && unit < 0xE000) {
            code = half == 0 ? 0 : 0x10000U + ((half - kFirstHalf) << 10U) + (unit - kSecondHalf);
        }
        half = 0;
        return code == 0 ? 0 : encode(code, target);
    }

    static std::size_t encode(std::uint32_t code, std::span<char> target) {
        if (code < 0x80) {
            target[0] = static_cast<char>(code);
            return 1;
        }
        const std::size_t more = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        constexpr std::array<std::uint32_t, 4> kLead{0, 0xC0, 0xE0, 0xF0};
        target[0] = static_cast<char>(kLead[more] | code >> (6 * more));
        for (std::size_t i = 1; i <= more; ++i)
            target[i] = static_cast<char>(0x80U | (code >> (6 * (more - i)) & 0x3FU));
        return more + 1;
    }

    ByteSource source;
    std::size_t high; ///< the place of a unit's high byte
    std::array<char, 4096> block{};
    std::uint32_t at = 0;
    std::uint32_t loaded = 0;
    std::uint32_t half = 0; ///< the first half of a pair
};

} // namespace

ByteSource sourceOf(std::string_view bytes) {
    return [left = bytes](std::span<char> target) mutable {
        const std::size_t count = left.copy(target.data(), target.size());
        left.remove_prefix(count);
        return count;
    };
}

std::optional<ByteSource> sourceOfFile(const std::filesystem::path& file) {
    const auto stream = std::make_shared<std::ifstream>(file, std::ios::binary);
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error) || !*stream)
        return std::nullopt;
    return [stream](std::span<char> target) {
        stream->read(target.data(), static_cast<std::streamsize>(target.size()));
        return static_cast<std::size_t>(stream->gcount());
    };
}

TextLines::TextLines(ByteSource bytes)
    : source(std::move(bytes))
    , buffer(kBlock) {
    skipMark();
}

void TextLines::skipMark() {
    std::array<char, 3> head{};
    std::size_t count = 0;
    while (count < head.size()) {
        const std::size_t more = source(std::span(head).subspan(count));
        if (more == 0)
            break;
        count += more;
    }
    std::string_view left(head.data(), count);
    const bool isBig = left.starts_with("\xFE\xFF");
    if (left.starts_with("\xEF\xBB\xBF"))
        left = {};
    if (isBig || left.starts_with("\xFF\xFE"))
        left.remove_prefix(2);
    const bool isWide = count >= 2 && left.size() == count - 2;
    // What was read of the text comes back before the rest.
    ByteSource whole = [kept = std::string(left),
                        rest = std::move(source)](std::span<char> target) mutable {
        const std::size_t given = kept.copy(target.data(), target.size());
        kept.erase(0, given);
        return given > 0 ? given : rest(target);
    };
    if (isWide) {
        // The converter has its place in a block, so copies must share it.
        auto wide = std::make_shared<WideSource>(std::move(whole), isBig);
        source = [wide](std::span<char> target) { return (*wide)(target); };
    } else {
        source = std::move(whole);
    }
}

/// Moves what is left to the front and reads on behind it. False at the end of the file, and if the
/// line is too long.
bool TextLines::loadMore() {
    if (isAtEnd)
        return false;
    if (start > 0) {
        std::copy(
            buffer.begin() + static_cast<std::ptrdiff_t>(start),
            buffer.begin() + static_cast<std::ptrdiff_t>(end),
            buffer.begin());
        end -= start;
        scanned -= start;
        start = 0;
    }
    if (end == buffer.size()) {
        if (buffer.size() >= kMaxLineBytes)
            return false;
        buffer.resize(buffer.size() * 2);
    }
    char* const target = buffer.data() + end;
    const std::size_t count = source(std::span(target, buffer.size() - end));
    isAtEnd = count == 0;
    bytesRead_ += count;
    blankControls(target, count);
    if (endedWithReturn && count > 0 && *target == '\n')
        *target = ' '; // the CR before it has ended the line
    endedWithReturn = count > 0 ? target[count - 1] == '\r' : endedWithReturn;
    mendReturns(target, count);
    end += count;
    return count > 0;
}

/// The place of the next line end, loading as much as needed.
std::size_t TextLines::lineEnd() {
    while (true) {
        const void* found = std::memchr(buffer.data() + scanned, '\n', end - scanned);
        if (found != nullptr)
            return static_cast<std::size_t>(static_cast<const char*>(found) - buffer.data());
        scanned = end;
        if (!loadMore())
            return end;
    }
}

/// The rest of a line that was cut off.
void TextLines::skipToLineEnd() {
    isCutOff = false;
    scanned = start;
    std::size_t at = lineEnd();
    while (at == end && !isAtEnd) {
        start = end;
        at = lineEnd();
    }
    start = std::min(at + 1, end);
}

std::optional<std::string_view> TextLines::next() {
    if (isCutOff)
        skipToLineEnd();
    scanned = start;
    std::size_t blanks = 0; // before the first visible character
    while (true) {
        const std::size_t at = lineEnd();
        if (at == end && start == end)
            return std::nullopt;
        std::string_view line(buffer.data() + start, at - start);
        while (blanks < line.size() && line[blanks] == ' ')
            ++blanks;
        const std::size_t last = line.find_last_not_of(' ');
        const bool goesOn = blanks < line.size() && line[blanks] != '#' && line[last] == '\\';
        if (goesOn && at < end) {
            buffer[start + last] = ' ';
            buffer[at] = ' ';
            scanned = at;
            continue;
        }
        isCutOff = at == end && !isAtEnd;
        start = std::min(at + 1, end);
        return goesOn ? line.substr(0, last) : line;
    }
}

bool forEachLine(
    const std::filesystem::path& file,
    std::uint64_t maxBytes,
    const std::function<bool(std::string_view line)>& take) {
    auto source = sourceOfFile(file);
    if (!source)
        return false;
    TextLines lines(*std::move(source));
    bool goesOn = true;
    for (auto line = lines.next(); goesOn && line; line = lines.next())
        goesOn = take(*line) && lines.bytesRead() <= maxBytes;
    return true;
}

} // namespace zelvo::object
