// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

/// Other forms of a TrueType font, made of its bytes. All numbers in them are big-endian.
namespace zelvo::test {

[[nodiscard]] inline std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

[[nodiscard]] inline std::string bigEndian(std::uint64_t number, std::size_t bytes = 4) {
    std::string text(bytes, '\0');
    for (std::size_t i = 0; i < bytes; ++i)
        text[bytes - 1 - i] = static_cast<char>(number >> (8 * i));
    return text;
}

[[nodiscard]] inline std::uint32_t numberAt(const std::string& font, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i)
        number = number << 8U | static_cast<std::uint8_t>(font[at + i]);
    return number;
}

constexpr std::size_t kDirectoryAt = 12;
constexpr std::size_t kRow = 16; ///< of the directory: tag, sum, offset, length

[[nodiscard]] inline std::size_t tableCount(const std::string& font) {
    return numberAt(font, kDirectoryAt - 8) >> 16U;
}

/// A font whose name table has another tag.
[[nodiscard]] inline std::string withoutName(std::string font) {
    return font.replace(font.find("name", kDirectoryAt), 4, "nama");
}

/// A collection of fonts.
[[nodiscard]] inline std::string collectionOf(const std::vector<std::string>& fonts) {
    std::string collection = "ttcf" + bigEndian(0x00010000) + bigEndian(fonts.size());
    std::size_t place = collection.size() + 4 * fonts.size();
    std::string bodies;
    for (std::string font : fonts) {
        collection += bigEndian(place);
        for (std::size_t i = 0; i < tableCount(font); ++i) {
            const std::size_t offsetAt = kDirectoryAt + i * kRow + 8;
            font.replace(offsetAt, 4, bigEndian(numberAt(font, offsetAt) + place));
        }
        place += font.size();
        bodies += font;
    }
    return collection + bodies;
}

/// A font for the web (WOFF), with tables that are not compressed.
[[nodiscard]] inline std::string webFontOf(const std::string& font) {
    const std::size_t count = tableCount(font);
    constexpr std::size_t kHeader = 44;
    constexpr std::size_t kWebRow = 20; // tag, offset, packed length, length, sum
    std::string rows;
    std::string bodies;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t row = kDirectoryAt + i * kRow;
        const std::string length = font.substr(row + 12, 4);
        rows += font.substr(row, 4) + bigEndian(kHeader + count * kWebRow + bodies.size());
        rows += length + length + font.substr(row + 4, 4);
        bodies += font.substr(numberAt(font, row + 8), numberAt(font, row + 12));
        bodies.resize((bodies.size() + 3) / 4 * 4);
    }
    const std::size_t whole = kHeader + rows.size() + bodies.size();
    const std::size_t unpacked = kDirectoryAt + count * kRow + bodies.size();
    std::string header = "wOFF" + font.substr(0, 4) + bigEndian(whole) + bigEndian(count, 2);
    header += bigEndian(0, 2) + bigEndian(unpacked);
    header.resize(kHeader);
    return header + rows + bodies;
}

} // namespace zelvo::test
