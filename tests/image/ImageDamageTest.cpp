// SPDX-License-Identifier: MIT
#include "image/ImageFiles.h"
#include "platform/image/reading/ImageReader.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace zelvo::image {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// A sound PNG and a sound JPEG of the same picture.
std::vector<Bytes> sound() {
    const ScratchFolder folder;
    const Image image = quartered(24, 16);
    EXPECT_TRUE(savePNG(image, folder.path / "a.png"));
    EXPECT_TRUE(saveJPEG(image, folder.path / "a.jpg"));
    return {bytesOf(folder.path / "a.png"), bytesOf(folder.path / "a.jpg")};
}

/// Either an error that says something or a picture that is whole.
void expectSettled(const Bytes& bytes, std::size_t where) {
    const auto result = decodeImage(bytes);
    if (!result) {
        EXPECT_FALSE(result.error().message.empty()) << where;
        return;
    }
    const Image& image = **result;
    EXPECT_GT(image.width, 0) << where;
    EXPECT_EQ(image.pixels.size(), static_cast<std::size_t>(image.width * image.height) * 4)
        << where;
}

TEST(ImageDamage, FilesCutAnywhereNeverCrash) {
    for (const Bytes& file : sound()) {
        ASSERT_TRUE(decodeImage(file));
        for (std::size_t length = 0; length < file.size(); ++length) {
            expectSettled(
                Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length)), length);
        }
        EXPECT_FALSE(decodeImage(Bytes(file.begin(), file.begin() + 30)));
    }
    Bytes jpeg = sound()[1];
    while (jpeg.size() > 3) {
        jpeg.pop_back();
        const auto cut = decodeImage(jpeg);
        ASSERT_FALSE(cut) << jpeg.size();
        EXPECT_TRUE(cut.error().message.starts_with("the picture is cut off")) << jpeg.size();
    }
}

TEST(ImageDamage, FlippedBytesNeverCrash) {
    for (const Bytes& file : sound()) {
        for (std::size_t at = 0; at < file.size(); ++at) {
            for (const unsigned flip : {0x01U, 0x80U, 0xFFU}) {
                Bytes damaged = file;
                damaged[at] = static_cast<std::uint8_t>(damaged[at] ^ flip);
                expectSettled(damaged, at);
            }
        }
    }
}

void append32(Bytes& bytes, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

/// A PNG chunk with its checksum (CRC-32 as in the PNG specification, annex D).
void appendChunk(Bytes& bytes, const std::string& type, const Bytes& data) {
    append32(bytes, static_cast<std::uint32_t>(data.size()));
    const std::size_t start = bytes.size();
    bytes.insert(bytes.end(), type.begin(), type.end());
    bytes.insert(bytes.end(), data.begin(), data.end());
    std::uint32_t crc = ~0U;
    for (std::size_t i = start; i < bytes.size(); ++i) {
        crc ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    append32(bytes, ~crc);
}

Bytes lyingPNG(std::uint32_t width, std::uint32_t height) {
    Bytes header;
    append32(header, width);
    append32(header, height);
    header.insert(header.end(), {8, 6, 0, 0, 0});
    Bytes bytes{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    appendChunk(bytes, "IHDR", header);
    appendChunk(bytes, "IDAT", {0x78, 0x9C, 0x03, 0, 0, 0, 0, 1});
    appendChunk(bytes, "IEND", {});
    return bytes;
}

Bytes lyingBMP(std::uint32_t side) {
    Bytes bytes(54);
    const auto put32 = [&](std::size_t at, std::uint32_t value) {
        for (std::size_t i = 0; i < 4; ++i)
            bytes.at(at + i) = static_cast<std::uint8_t>(value >> (8 * i));
    };
    bytes[0] = 'B';
    bytes[1] = 'M';
    put32(2, 54);
    put32(10, 54);
    put32(14, 40);
    put32(18, side);
    put32(22, side);
    bytes[26] = 1;
    bytes[28] = 32;
    return bytes;
}

/// A progressive JPEG of three components that ends where its squares should begin.
Bytes lyingJPEG(std::uint32_t side) {
    const auto high = static_cast<std::uint8_t>(side >> 8U);
    const auto low = static_cast<std::uint8_t>(side);
    Bytes bytes{0xFF, 0xD8};
    const auto append = [&bytes](std::uint8_t marker, const Bytes& data, const Bytes& rest) {
        bytes.push_back(0xFF);
        bytes.push_back(marker);
        bytes.push_back(0);
        bytes.push_back(static_cast<std::uint8_t>(2 + data.size() + rest.size()));
        std::ranges::copy(data, std::back_inserter(bytes));
        std::ranges::copy(rest, std::back_inserter(bytes));
    };
    append(0xDB, {0}, Bytes(64, 8));
    append(0xC2, {8, high, low, high, low, 3, 1, 0x11, 0, 2, 0x11, 0, 3, 0x11, 0}, {});
    append(0xC4, {0, 1}, Bytes(16, 0));
    append(0xDA, {3, 1, 0, 2, 0, 3, 0, 0, 0, 0}, {});
    bytes.push_back(0xFF);
    bytes.push_back(0xD9);
    return bytes;
}

/// A GIF of one dot on a canvas of that size.
Bytes lyingGIF(std::uint16_t side) {
    const auto low = static_cast<std::uint8_t>(side);
    const auto high = static_cast<std::uint8_t>(side >> 8U);
    return {'G', 'I',  'F', '8', '9', 'a', low, high, low, high, 0x80, 0, 0, 0,    0, 0, 255, 255,
            255, 0x2C, 0,   0,   0,   0,   low, high, low, high, 0,    2, 2, 0x44, 1, 0, 0x3B};
}

/// A WebP that claims 16384 x 16384 pixels, more than its decoder may hold.
Bytes lyingWebP() {
    Bytes bytes;
    std::ranges::copy(
        std::string_view("RIFF\x1E\0\0\0WEBPVP8L\x12\0\0\0", 20), std::back_inserter(bytes));
    append32(bytes, 0x2FFFFFFF);
    append32(bytes, 0x0F000000);
    bytes.resize(38);
    return bytes;
}

long peakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

TEST(ImageDamage, SizesThatLieAreRefusedWithoutTakingTheMemory) {
    const long before = peakKilobytes();
    const auto huge = decodeImage(lyingPNG(100'000, 100'000));
    ASSERT_FALSE(huge);
    EXPECT_EQ(huge.error().cause, foundation::Cause::tooLarge);
    for (const Bytes& bytes :
         {lyingPNG(0x7FFFFFFF, 0x7FFFFFFF),
          lyingPNG(0, 5),
          lyingPNG(20'000, 20'000),
          lyingPNG(400'000'000, 1),
          lyingJPEG(20'000),
          lyingGIF(11'000),
          lyingBMP(20'000),
          lyingBMP(100'000),
          lyingBMP(0x7FFFFFFF)}) {
        EXPECT_FALSE(decodeImage(bytes));
    }
    EXPECT_LT(peakKilobytes() - before, 200'000);
    EXPECT_TRUE(decodeImage(lyingJPEG(64))) << "but for its length it is sound";
    EXPECT_EQ(decodeImage(lyingWebP()).error().cause, foundation::Cause::tooLarge)
        << "which is not called damaged";
}

} // namespace
} // namespace zelvo::image
