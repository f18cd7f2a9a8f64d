// SPDX-License-Identifier: MIT
#include "platform/music/TagLines.h"

#include <fmt/format.h>

#include <array>
#include <charconv>

namespace zelvo::music {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

constexpr std::size_t kFields = 9;

template <class Number> Number numberOf(std::string_view text) {
    Number number = 0;
    (void)std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

} // namespace

std::string lineOf(const SongTags& tags) {
    return fmt::format(
        "{}\t{}\t{}\t{}\t{}\t{}\t{}\t{:d}\t{:d}\n",
        tags.title,
        tags.album,
        tags.albumArtist,
        tags.artist,
        tags.track,
        tags.disc,
        tags.duration,
        tags.hasCover,
        tags.isProtected);
}

std::string lineOf(const foundation::Error& error) {
    return fmt::format(
        "{}\t{}\n", error.cause == Cause::unreadable ? "unreadable" : "", error.message);
}

Result<SongTags> tagsOfLine(std::string_view line) {
    std::array<std::string_view, kFields> fields;
    std::size_t count = 0;
    for (std::string_view rest = line; count < kFields; ++count) {
        const std::size_t end = rest.find('\t');
        fields.at(count) = rest.substr(0, end);
        if (end == std::string_view::npos) {
            ++count;
            break;
        }
        rest.remove_prefix(end + 1);
    }
    if (count != kFields)
        return fail(
            fields[0] == "unreadable" ? Cause::unreadable : Cause::malformed,
            std::string(count == 2 ? fields[1] : "it cannot be read"));
    return SongTags{
        .title = std::string(fields[0]),
        .album = std::string(fields[1]),
        .albumArtist = std::string(fields[2]),
        .artist = std::string(fields[3]),
        .track = numberOf<int>(fields[4]),
        .disc = numberOf<int>(fields[5]),
        .duration = numberOf<double>(fields[6]),
        .hasCover = fields[7] == "1",
        .isProtected = fields[8] == "1"};
}

} // namespace zelvo::music
