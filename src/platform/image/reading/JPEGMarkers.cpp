// SPDX-License-Identifier: MIT
#include "platform/image/reading/JPEGMarkers.h"

#include <cstddef>
#include <vector>

namespace zelvo::image {

namespace {

constexpr unsigned kFill = 0xFF; ///< starts a marker
constexpr unsigned kStart = 0xD8;
constexpr unsigned kEnd = 0xD9;
constexpr unsigned kScan = 0xDA;

/// Reads the file byte by byte; 0 after its end.
class Cursor {
public:
    explicit Cursor(const FileReader& source)
        : file(source) {}

    [[nodiscard]] unsigned next() {
        if (at == block.size())
            load();
        return isAtEnd ? 0 : block[at++];
    }

    [[nodiscard]] unsigned next16() {
        const unsigned high = next();
        return high << 8U | next();
    }

    void skip(std::size_t count) {
        for (std::size_t i = 0; i < count && !isAtEnd; ++i)
            (void)next();
    }

    bool isAtEnd = false;

private:
    void load() {
        constexpr std::size_t kBlock = 64 * 1024;
        block = file(place, kBlock);
        place += static_cast<std::int64_t>(block.size());
        at = 0;
        isAtEnd = block.empty();
    }

    const FileReader& file;
    std::vector<std::uint8_t> block;
    std::size_t at = 0;
    std::int64_t place = 0;
};

/// In a scan's data, a fill byte is followed by 0 or by a restart number.
[[nodiscard]] bool isInData(unsigned byte) {
    return byte == 0 || (byte >= 0xD0 && byte <= 0xD7);
}

/// The next marker, skipping data; 0 at the end of the file.
[[nodiscard]] unsigned nextMarker(Cursor& cursor) {
    unsigned last = 0;
    while (!cursor.isAtEnd) {
        const unsigned byte = cursor.next();
        if (last == kFill && byte != kFill && !isInData(byte))
            return byte;
        last = byte;
    }
    return 0;
}

/// Whether the marker starts the description of the picture. The other three of this range are
/// tables.
[[nodiscard]] bool isFrame(unsigned marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

} // namespace

std::optional<JPEGMarkers> jpegMarkersOf(const FileReader& file) {
    Cursor cursor(file);
    if (cursor.next() != kFill || cursor.next() != kStart)
        return std::nullopt;
    JPEGMarkers found;
    while (const unsigned marker = nextMarker(cursor)) {
        if (marker == kEnd) {
            found.isWhole = true;
            break;
        }
        if (marker == kStart || marker == 0x01)
            continue; // a marker without data
        std::size_t length = cursor.next16();
        constexpr std::size_t kFrameHead = 7; // with the length field
        if (isFrame(marker) && length >= kFrameHead) {
            (void)cursor.next(); // bits a sample
            const std::int64_t height = cursor.next16();
            found.pixels = height * cursor.next16();
            found.isProgressive = marker % 4 == 2;
            length -= kFrameHead - 2;
        }
        found.scans += marker == kScan ? 1 : 0;
        cursor.skip(length > 2 ? length - 2 : 0);
    }
    return found;
}

} // namespace zelvo::image
