// SPDX-License-Identifier: MIT
#include "image/ImageFiles.h"
#include "platform/image/reading/ImageReader.h"
#include "support/PeakMemory.h"

#include <gtest/gtest.h>
#include <png.h>

#include <string>

namespace zelvo::image {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Colour = std::array<int, 3>;

/// A kind of PNG. The left half of its picture is dark and the right half light; the bottom half is
/// transparent if the kind can be transparent.
struct Kind {
    const char* name;
    int colorType;
    int depth;
    Bytes dark;  ///< one pixel, for the top
    Bytes light; ///< the same
    Bytes clear; ///< one pixel, for all of the bottom; none: like the top
    Colour expectedDark;
    Colour expectedLight;
    double gamma = 0; ///< of the file; 0: the file has none
    int interlace = PNG_INTERLACE_NONE;
};

// clang-format off
const Kind kPalette{"palette", PNG_COLOR_TYPE_PALETTE, 8, {0}, {1}, {2}, {40, 60, 80}, {200, 220, 240}};

/// A value of half the range is 0.5 in sRGB. With a gamma of 1/2 it is a quarter of the light.
const std::vector<Kind> kKinds{
    kPalette,
    {"grey",        PNG_COLOR_TYPE_GRAY,      8,  {30},                     {250},                      {7},                {30, 30, 30},    {250, 250, 250}},
    {"16-bit grey", PNG_COLOR_TYPE_GRAY,      16, {30, 9},                  {250, 240},                 {0, 7},             {30, 30, 30},    {250, 250, 250}},
    {"16-bit RGB",  PNG_COLOR_TYPE_RGB,       16, {10, 10, 20, 20, 30, 30}, {255, 255, 128, 128, 0, 0}, {},                 {10, 20, 30},    {255, 128, 0}  },
    {"RGBA",        PNG_COLOR_TYPE_RGB_ALPHA, 8,  {9, 8, 7, 255},           {90, 80, 70, 255},          {255, 255, 255, 0}, {9, 8, 7},       {90, 80, 70}   },
    {"interlaced",  PNG_COLOR_TYPE_RGB_ALPHA, 8,  {9, 8, 7, 255},           {90, 80, 70, 255},          {255, 255, 255, 0}, {9, 8, 7},       {90, 80, 70},    0,   PNG_INTERLACE_ADAM7},
    {"gamma",       PNG_COLOR_TYPE_RGB,       8,  {128, 128, 128},          {255, 255, 0},              {},                 {137, 137, 137}, {255, 255, 0},   0.5},
    {"both",        PNG_COLOR_TYPE_RGB,       8,  {128, 128, 128},          {255, 255, 0},              {},                 {137, 137, 137}, {255, 255, 0},   0.5, PNG_INTERLACE_ADAM7},
};

// clang-format on

Bytes rowOf(const Kind& kind, int width, bool isTop) {
    Bytes row;
    for (int x = 0; x < width; ++x) {
        const auto& top = x * 2 < width ? kind.dark : kind.light;
        const auto& pixel = isTop || kind.clear.empty() ? top : kind.clear;
        row.insert(row.end(), pixel.begin(), pixel.end());
    }
    return row;
}

void setColours(png_structp png, png_infop info, const Kind& kind) {
    constexpr std::array<png_color, 3> kColours{{{40, 60, 80}, {200, 220, 240}, {1, 2, 3}}};
    constexpr std::array<png_byte, 3> kAlpha{255, 255, 0};
    if (kind.colorType == PNG_COLOR_TYPE_PALETTE) {
        png_set_PLTE(png, info, kColours.data(), 3);
        png_set_tRNS(png, info, kAlpha.data(), 3, nullptr);
    }
    png_color_16 clear{};
    clear.gray = 7;
    if (kind.colorType == PNG_COLOR_TYPE_GRAY)
        png_set_tRNS(png, info, nullptr, 0, &clear);
    if (kind.gamma > 0)
        png_set_gAMA(png, info, kind.gamma);
}

Bytes written(const Kind& kind, int width, int height) {
    Bytes file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    const auto append = [](png_structp writer, png_bytep bytes, std::size_t count) {
        auto& target = *static_cast<Bytes*>(png_get_io_ptr(writer));
        target.insert(target.end(), bytes, bytes + count);
    };
    png_set_write_fn(png, &file, append, [](png_structp) {});
    png_set_compression_level(png, 1);
    png_set_IHDR(
        png,
        info,
        static_cast<png_uint_32>(width),
        static_cast<png_uint_32>(height),
        kind.depth,
        kind.colorType,
        kind.interlace,
        PNG_COMPRESSION_TYPE_DEFAULT,
        PNG_FILTER_TYPE_DEFAULT);
    setColours(png, info, kind);
    png_write_info(png, info);
    const auto top = rowOf(kind, width, true);
    const auto bottom = rowOf(kind, width, false);
    const int passes = png_set_interlace_handling(png);
    for (int pass = 0; pass < passes; ++pass) {
        for (int y = 0; y < height; ++y)
            png_write_row(png, y * 2 < height ? top.data() : bottom.data());
    }
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return file;
}

Colour colourAt(const Image& image, int x, int y) {
    const auto at = static_cast<std::size_t>(y * image.width + x) * 4;
    return {image.pixels.at(at), image.pixels.at(at + 1), image.pixels.at(at + 2)};
}

TEST(LargePNG, EveryKindIsScaledDown) {
    for (const Kind& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        const auto loaded = decodeImage(written(kind, 6144, 20));
        ASSERT_TRUE(loaded) << loaded.error().message;
        const Image& image = **loaded;
        ASSERT_EQ(image.width, kMaxSide);
        ASSERT_EQ(image.height, 13);
        EXPECT_EQ(colourAt(image, 0, 0), kind.expectedDark);
        EXPECT_EQ(colourAt(image, kMaxSide / 2 - 1, 3), kind.expectedDark);
        EXPECT_EQ(colourAt(image, kMaxSide - 1, 0), kind.expectedLight);
        EXPECT_EQ(image.pixels.at(3), 255);
        EXPECT_EQ(image.pixels.back(), kind.clear.empty() ? 255 : 0);
        // Row 6 covers the edge: it is half transparent, and the transparent part adds no colour.
        EXPECT_EQ(colourAt(image, 0, 6), kind.expectedDark);
        EXPECT_NEAR(image.pixels.at(6U * kMaxSide * 4 + 3), kind.clear.empty() ? 255 : 127.5, 1);
    }
}

TEST(LargePNG, CutAndDamagedFilesAreReported) {
    const auto sound = written(kPalette, 5000, 300);
    ASSERT_TRUE(decodeImage(sound));
    for (const std::size_t length : {29U, 60U, static_cast<unsigned>(sound.size() / 2)}) {
        const auto loaded = decodeImage({sound.data(), length});
        ASSERT_FALSE(loaded) << length;
        EXPECT_EQ(loaded.error().cause, foundation::Cause::malformed);
        EXPECT_NE(loaded.error().message.find("ends early"), std::string::npos);
    }
    auto damaged = sound;
    damaged[damaged.size() / 2] ^= 0xFFU;
    EXPECT_FALSE(decodeImage(damaged));
}

TEST(LargePNG, TwentyThousandWideTakesLittleMemoryAndInterlacedIsRefused) {
    const auto wide = written(kPalette, 20'000, 8'000);
    const long before = test::peakKilobytes();
    const auto loaded = decodeImage(wide);
    ASSERT_TRUE(loaded) << loaded.error().message;
    EXPECT_EQ((*loaded)->height, 1638);
    EXPECT_LT(test::peakKilobytes() - before, 100'000);

    Kind interlaced = kPalette;
    interlaced.interlace = PNG_INTERLACE_ADAM7;
    const auto refused = decodeImage(written(interlaced, 20'000, 4'000));
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().cause, foundation::Cause::tooLarge);
    EXPECT_NE(refused.error().message.find("interlacing"), std::string::npos);
}

} // namespace
} // namespace zelvo::image
