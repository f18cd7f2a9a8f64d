// SPDX-License-Identifier: MIT
#include "image/ImageFiles.h"
#include "platform/image/reading/ImageReader.h"
#include "support/PeakMemory.h"

#include <gtest/gtest.h>

#include <string_view>

namespace zelvo::image {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// An undamaged PNG and an undamaged JPEG of the same picture, and a TGA.
std::vector<Bytes> sound() {
    const test::TemporaryFolder folder;
    const Image image = quartered(24, 16);
    EXPECT_TRUE(savePNG(image, folder.path() / "a.png"));
    EXPECT_TRUE(saveJPEG(image, folder.path() / "a.jpg"));
    return {bytesOf(folder.path() / "a.png"), bytesOf(folder.path() / "a.jpg"), runsInTGA()};
}

/// The result is an error with a message, or a complete picture.
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

TEST(ImageDamage, LibrariesSayNothingOnTheConsole) {
    Bytes tiff{'I', 'I', '*', 0, 8, 0, 0, 0, 2, 0}; // its directory is cut off
    tiff.resize(40);
    std::vector<Bytes> files{tiff};
    const Bytes png = sound()[0];
    for (const std::ptrdiff_t length : {8, 20, 40, 60})
        files.emplace_back(png.begin(), png.begin() + length);
    files.push_back(png);
    constexpr std::string_view kPixels = "IDAT";
    Bytes& damaged = files.back();
    const auto name = std::search(damaged.begin(), damaged.end(), kPixels.begin(), kPixels.end());
    *(name + kPixels.size()) ^= 0xFFU;
    testing::internal::CaptureStderr();
    for (const Bytes& file : files)
        EXPECT_FALSE(decodeImage(file)) << file.size();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
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

Bytes joined(std::initializer_list<Bytes> parts) {
    Bytes whole;
    for (const Bytes& part : parts)
        whole.insert(whole.end(), part.begin(), part.end());
    return whole;
}

Bytes letters(std::string_view text) {
    return {text.begin(), text.end()};
}

/// The bytes of the number, highest first.
Bytes number(std::uint32_t value) {
    Bytes bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
    return bytes;
}

Bytes littleEndian(std::uint32_t value) {
    const Bytes bytes = number(value);
    return {bytes.rbegin(), bytes.rend()};
}

/// A PNG chunk with its checksum (CRC-32 as in the PNG specification, annex D).
Bytes chunk(std::string_view type, const Bytes& data) {
    const Bytes body = joined({letters(type), data});
    std::uint32_t crc = ~0U;
    for (const std::uint8_t byte : body) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return joined({number(static_cast<std::uint32_t>(data.size())), body, number(~crc)});
}

Bytes lyingPNG(std::uint32_t width, std::uint32_t height) {
    return joined(
        {{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'},
         chunk("IHDR", joined({number(width), number(height), {8, 6, 0, 0, 0}})),
         chunk("IDAT", {0x78, 0x9C, 0x03, 0, 0, 0, 0, 1}),
         chunk("IEND", {})});
}

Bytes lyingBMP(std::uint32_t side) {
    const Bytes sides = joined({littleEndian(side), littleEndian(side)});
    const Bytes head = joined({littleEndian(0), littleEndian(54), littleEndian(40)});
    return joined({letters("BM"), littleEndian(54), head, sides, {1, 0, 32, 0}, Bytes(24)});
}

/// A progressive JPEG with three components and empty scans.
Bytes lyingJPEG(std::uint32_t side, int scans = 1) {
    const auto segment = [](std::uint8_t marker, const Bytes& data) {
        return joined({{0xFF, marker, 0, static_cast<std::uint8_t>(2 + data.size())}, data});
    };
    const auto high = static_cast<std::uint8_t>(side >> 8U);
    const auto low = static_cast<std::uint8_t>(side);
    Bytes bytes = joined(
        {{0xFF, 0xD8},
         segment(0xDB, joined({{0}, Bytes(64, 8)})),
         segment(0xC2, {8, high, low, high, low, 3, 1, 0x11, 0, 2, 0x11, 0, 3, 0x11, 0}),
         segment(0xC4, joined({{0, 1}, Bytes(16, 0)}))});
    for (int i = 0; i < scans; ++i)
        bytes = joined({bytes, segment(0xDA, {3, 1, 0, 2, 0, 3, 0, 0, 0, 0})});
    return joined({bytes, {0xFF, 0xD9}});
}

/// A GIF with one pixel on a canvas of this size.
Bytes lyingGIF(std::uint16_t side) {
    const auto low = static_cast<std::uint8_t>(side);
    const auto high = static_cast<std::uint8_t>(side >> 8U);
    const Bytes sides{low, high, low, high};
    return joined(
        {letters("GIF89a"),
         sides,
         {0x80, 0, 0, 0, 0, 0, 255, 255, 255, 0x2C, 0, 0, 0, 0},
         sides,
         {0, 2, 2, 0x44, 1, 0, 0x3B}});
}

/// A WebP that claims to have 16384 x 16384 pixels, more than the decoder accepts.
Bytes lyingWebP() {
    const std::string_view head("RIFF\x1E\0\0\0WEBPVP8L\x12\0\0\0", 20);
    return joined({letters(head), number(0x2FFFFFFF), number(0x0F000000), Bytes(10)});
}

TEST(ImageDamage, SizesThatLieAreRefusedWithoutTakingTheMemory) {
    using enum foundation::Cause;

    struct Row {
        const char* what;
        Bytes file;
        foundation::Cause cause;
    };

    // clang-format off
    const Row rows[] = {
        {"a huge PNG",               lyingPNG(100'000, 100'000),       tooLarge },
        {"the largest PNG",          lyingPNG(0x7FFFFFFF, 0x7FFFFFFF), tooLarge },
        {"a PNG without columns",    lyingPNG(0, 5),                   malformed},
        {"a PNG just small enough",  lyingPNG(20'000, 20'000),         malformed},
        {"a PNG of one row",         lyingPNG(400'000'000, 1),         malformed},
        {"a progressive JPEG",       lyingJPEG(20'000),                tooLarge },
        {"a JPEG of too many scans", lyingJPEG(64, 201),               malformed},
        {"a GIF",                    lyingGIF(11'000),                 malformed},
        {"a BMP",                    lyingBMP(20'000),                 malformed},
        {"a huge BMP",               lyingBMP(100'000),                malformed},
        {"the largest BMP",          lyingBMP(0x7FFFFFFF),             malformed},
        {"a WebP",                   lyingWebP(),                      tooLarge },
    };
    // clang-format on
    const long before = test::peakKilobytes();
    for (const Row& row : rows) {
        const auto picture = decodeImage(row.file);
        ASSERT_FALSE(picture) << row.what;
        EXPECT_EQ(picture.error().cause, row.cause) << row.what << ": " << picture.error().message;
    }
    EXPECT_LT(test::peakKilobytes() - before, 200'000);
    EXPECT_TRUE(decodeImage(lyingJPEG(64, 200))) << "but for its length it is sound";
}

} // namespace
} // namespace zelvo::image
