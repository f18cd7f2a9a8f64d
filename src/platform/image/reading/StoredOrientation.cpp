// SPDX-License-Identifier: MIT
#include "platform/image/reading/StoredOrientation.h"

#include <libexif/exif-data.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string_view>

namespace zelvo::image {

namespace {

using namespace std::string_view_literals;
using Bytes = std::vector<std::uint8_t>;

constexpr unsigned kUpright = 1;
constexpr int kMaxChunks = 4096;
constexpr std::size_t kMaxExif = 1U << 16U;

enum class ByteOrder { bigEndian, littleEndian };

/// An integer of up to four bytes; bytes after the end count as 0.
std::uint32_t numberAt(const Bytes& bytes, std::size_t at, std::size_t length, ByteOrder order) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const std::size_t place = at + (order == ByteOrder::bigEndian ? i : length - 1 - i);
        number = (number << 8U) | (place < bytes.size() ? bytes[place] : 0U);
    }
    return number;
}

bool hasAt(const Bytes& bytes, std::size_t at, std::string_view text) {
    return bytes.size() >= at + text.size() &&
           std::equal(
               text.begin(),
               text.end(),
               bytes.begin() + static_cast<std::ptrdiff_t>(at),
               [](char letter, std::uint8_t byte) {
                   return static_cast<std::uint8_t>(letter) == byte;
               });
}

/// Both formats are lists of chunks, each with a length and a name of four letters.
struct Container {
    std::size_t first; ///< offset of the first chunk
    std::size_t lengthAt;
    std::size_t nameAt;
    ByteOrder order;
    std::string_view exifName;
    std::string_view lastName; ///< the search ends at this chunk
    std::size_t tail;          ///< number of bytes after each chunk's data
    std::size_t alignment;     ///< of the data, in bytes
};

constexpr Container kPNG{8, 0, 4, ByteOrder::bigEndian, "eXIf", "IEND", 4, 1};
constexpr Container kWebP{12, 4, 0, ByteOrder::littleEndian, "EXIF", "", 0, 2};

std::optional<Container> containerOf(const Bytes& start) {
    if (hasAt(start, 0, "\x89PNG\r\n\x1A\n"sv))
        return kPNG;
    if (hasAt(start, 0, "RIFF") && hasAt(start, 8, "WEBP"))
        return kWebP;
    return {};
}

Bytes exifOf(const FileReader& file, const Container& container) {
    constexpr std::size_t kHead = 8;
    auto at = static_cast<std::int64_t>(container.first);
    for (int i = 0; i < kMaxChunks; ++i) {
        const Bytes head = file(at, kHead);
        if (head.size() < kHead)
            break;
        const std::size_t length = numberAt(head, container.lengthAt, 4, container.order);
        if (hasAt(head, container.nameAt, container.exifName))
            return file(at + static_cast<std::int64_t>(kHead), std::min(length, kMaxExif));
        if (!container.lastName.empty() && hasAt(head, container.nameAt, container.lastName))
            break;
        const std::size_t padded = (length + container.alignment - 1) / container.alignment;
        at += static_cast<std::int64_t>(kHead + padded * container.alignment + container.tail);
    }
    return {};
}

unsigned orientationIn(Bytes block) {
    constexpr auto kName = "Exif\0\0"sv; // missing in a PNG
    if (!hasAt(block, 0, kName))
        block.insert(block.begin(), kName.begin(), kName.end());
    const std::unique_ptr<ExifData, decltype(&exif_data_unref)> exif(
        exif_data_new(), &exif_data_unref);
    if (exif == nullptr)
        return kUpright;
    // Otherwise libexif adds entries that the block lacks.
    exif_data_unset_option(exif.get(), EXIF_DATA_OPTION_FOLLOW_SPECIFICATION);
    exif_data_load_data(exif.get(), block.data(), static_cast<unsigned>(block.size()));
    const ExifEntry* const entry =
        exif_content_get_entry(exif->ifd[EXIF_IFD_0], EXIF_TAG_ORIENTATION);
    if (entry == nullptr || entry->format != EXIF_FORMAT_SHORT || entry->components != 1)
        return kUpright;
    const unsigned value = exif_get_short(entry->data, exif_data_get_byte_order(exif.get()));
    return value >= 1 && value <= 8 ? value : kUpright;
}

/// How to read a picture: by columns or by rows, and from which ends.
struct Turn {
    bool swapsSides;
    bool fromRight;
    bool fromBottom;
};

/// Indexed by Exif's number.
// clang-format off
constexpr auto kTurns = std::to_array<Turn>({
    {false, false, false},
    {false, false, false},
    {false, true,  false},
    {false, true,  true },
    {false, false, true },
    {true,  false, false},
    {true,  false, true },
    {true,  true,  true },
    {true,  true,  false},
});
// clang-format on

} // namespace

unsigned storedOrientation(const FileReader& file) {
    constexpr std::size_t kStart = 12;
    const auto container = containerOf(file(0, kStart));
    return container ? orientationIn(exifOf(file, *container)) : kUpright;
}

Image upright(const Image& stored, unsigned orientation) {
    const Turn turn = kTurns.at(orientation);
    Image result =
        turn.swapsSides ? Image(stored.height, stored.width) : Image(stored.width, stored.height);
    std::uint8_t* pixel = result.pixels.data();
    for (int row = 0; row < result.height; ++row) {
        for (int column = 0; column < result.width; ++column) {
            const int across = turn.swapsSides ? row : column;
            const int down = turn.swapsSides ? column : row;
            const int x = turn.fromRight ? stored.width - 1 - across : across;
            const int y = turn.fromBottom ? stored.height - 1 - down : down;
            const auto at = (static_cast<std::size_t>(y) * static_cast<std::size_t>(stored.width) +
                             static_cast<std::size_t>(x)) *
                            4;
            pixel = std::copy_n(stored.pixels.data() + at, 4, pixel);
        }
    }
    return result;
}

} // namespace zelvo::image
