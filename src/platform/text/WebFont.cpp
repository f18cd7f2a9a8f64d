// SPDX-License-Identifier: MIT
#include "platform/text/WebFont.h"

#include "platform/text/FontFace.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H

#include <cstdint>
#include <memory>
#include <type_traits>

namespace zelvo::text {

namespace {

using foundation::Cause;

constexpr std::size_t kUnpackedSizeAt = 16; ///< in the headers of both forms: 32 bits, big-endian

/// The size that the header promises. FreeType reserves that much, so it is checked before.
std::size_t promisedSize(const std::string& bytes) {
    std::size_t size = 0;
    for (std::size_t i = 0; i < 4; ++i)
        size = size << 8U | static_cast<std::uint8_t>(bytes[kUnpackedSizeAt + i]);
    return size;
}

struct LibraryDeleter {
    void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};

struct FaceDeleter {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};

using Library = std::unique_ptr<std::remove_pointer_t<FT_Library>, LibraryDeleter>;
using Face = std::unique_ptr<std::remove_pointer_t<FT_Face>, FaceDeleter>;

Library openLibrary() {
    FT_Library opened = nullptr;
    return Library(FT_Init_FreeType(&opened) == 0 ? opened : nullptr);
}

Face openFace(FT_Library library, const std::string& bytes) {
    FT_Face opened = nullptr;
    const auto* const data = reinterpret_cast<const FT_Byte*>(bytes.data());
    const auto size = static_cast<FT_Long>(bytes.size());
    return Face(FT_New_Memory_Face(library, data, size, 0, &opened) == 0 ? opened : nullptr);
}

} // namespace

bool isWebFont(const std::string& bytes) {
    return bytes.starts_with("wOFF") || bytes.starts_with("wOF2");
}

foundation::Result<std::string> unpackWebFont(const std::string& bytes) {
    const auto damaged = [] {
        return foundation::fail(
            Cause::malformed, "is a damaged font for the web (WOFF); use another copy of it");
    };
    if (bytes.size() < kUnpackedSizeAt + 4)
        return damaged();
    if (promisedSize(bytes) > kMaxFontFile) {
        return foundation::fail(
            Cause::tooLarge, "is over 64 MiB when unpacked, more than a font file may have");
    }
    const Library library = openLibrary();
    const Face face = library ? openFace(library.get(), bytes) : nullptr;
    FT_ULong size = 0;
    constexpr FT_ULong kWholeFile = 0; // instead of a table
    if (!face || FT_Load_Sfnt_Table(face.get(), kWholeFile, 0, nullptr, &size) != 0)
        return damaged();
    std::string unpacked(size, '\0');
    auto* const data = reinterpret_cast<FT_Byte*>(unpacked.data());
    if (FT_Load_Sfnt_Table(face.get(), kWholeFile, 0, data, &size) != 0)
        return damaged();
    return unpacked;
}

} // namespace zelvo::text
