// SPDX-License-Identifier: MIT
#include "image/ImageFiles.h"
#include "platform/foundation/Folders.h"
#include "platform/image/reading/ImageNamed.h"
#include "platform/image/reading/ImageReader.h"

#include <gtest/gtest.h>

#include <array>

namespace zelvo::image {
namespace {

using foundation::Cause;

/// The colour at a place, as r, g, b, w, or ? for another one. The place is in quarters of the
/// sides.
char colourAt(const Image& image, int xQuarters, int yQuarters) {
    const int x = image.width * xQuarters / 4;
    const int y = image.height * yQuarters / 4;
    const auto at = static_cast<std::size_t>(y * image.width + x) * 4;
    const bool red = image.pixels[at] > 200;
    const bool green = image.pixels[at + 1] > 200;
    const bool blue = image.pixels[at + 2] > 200;
    if (red && green && blue)
        return 'w';
    if (red && !green && !blue)
        return 'r';
    if (green && !red && !blue)
        return 'g';
    return blue && !red && !green ? 'b' : '?';
}

std::string cornersOf(const Image& image) {
    return {
        colourAt(image, 1, 1), colourAt(image, 3, 1), colourAt(image, 1, 3), colourAt(image, 3, 3)};
}

using Bytes = std::vector<std::uint8_t>;

/// Exif data with only the orientation.
Bytes exifOf(std::uint8_t orientation) {
    return {'M', 'M', 0, 42, 0, 0, 0,           8, 0, 1, 0x01, 0x12, 0,
            3,   0,   0, 0,  1, 0, orientation, 0, 0, 0, 0,    0,    0};
}

Bytes inserted(Bytes file, std::ptrdiff_t at, const Bytes& head, const Bytes& data) {
    file.insert(file.begin() + at, data.begin(), data.end());
    file.insert(file.begin() + at, head.begin(), head.end());
    return file;
}

Bytes orientedJPEG(const Bytes& jpeg, std::uint8_t orientation) {
    return inserted(jpeg, 2, {0xFF, 0xE1, 0, 34, 'E', 'x', 'i', 'f', 0, 0}, exifOf(orientation));
}

Bytes orientedPNG(const Bytes& png, std::uint8_t orientation) {
    Bytes exif = exifOf(orientation);
    exif.insert(exif.end(), 4, 0); // the checksum is not read
    return inserted(png, 33, {0, 0, 0, 26, 'e', 'X', 'I', 'f'}, exif);
}

TEST(Image, PNGKeepsEveryByteWithStraightAlpha) {
    const test::TemporaryFolder folder;
    Image image(64, 4);
    for (std::size_t i = 0; i < image.pixels.size(); ++i) {
        image.pixels[i] = static_cast<std::uint8_t>(i * 37 + i / 7);
    }
    ASSERT_TRUE(savePNG(image, folder.path() / "a.png"));
    const auto loaded = loadImage(folder.path() / "a.png");
    ASSERT_TRUE(loaded);
    EXPECT_EQ((*loaded)->pixels, image.pixels);
}

TEST(Image, ExifOrientationIsApplied) {
    const test::TemporaryFolder folder;
    ASSERT_TRUE(saveJPEG(quartered(64, 32), folder.path() / "a.jpg"));
    ASSERT_TRUE(savePNG(quartered(64, 32), folder.path() / "a.png"));
    const Bytes jpeg = bytesOf(folder.path() / "a.jpg");
    const Bytes png = bytesOf(folder.path() / "a.png");
    // The places of the stored corners (red, green, blue, white), by the definition of the tag in
    // Exif 2.3.
    constexpr auto kCorners = std::to_array<const char*>(
        {"rgbw", "grwb", "wbgr", "bwrg", "rbgw", "brwg", "wgbr", "gwrb"});
    for (std::size_t i = 0; i < kCorners.size(); ++i) {
        const auto number = static_cast<std::uint8_t>(i + 1);
        for (const Bytes& file : {orientedJPEG(jpeg, number), orientedPNG(png, number)}) {
            const auto loaded = decodeImage(file);
            ASSERT_TRUE(loaded) << loaded.error().message;
            EXPECT_EQ(cornersOf(**loaded), kCorners.at(i)) << "orientation " << i + 1;
            EXPECT_EQ((*loaded)->width, i < 4 ? 64 : 32);
        }
    }
    ASSERT_TRUE(savePNG(quartered(kMaxSide + 4, 32), folder.path() / "wide.png"));
    const auto turned = decodeImage(orientedPNG(bytesOf(folder.path() / "wide.png"), 6));
    ASSERT_TRUE(turned) << turned.error().message;
    EXPECT_EQ((*turned)->height, kMaxSide) << "turned where it is scaled down row by row, too";
    const auto unknown = decodeImage(orientedPNG(png, 9));
    ASSERT_TRUE(unknown) << unknown.error().message;
    EXPECT_EQ(cornersOf(**unknown), kCorners.front());
}

TEST(Image, FailuresNameTheirCause) {
    const test::TemporaryFolder folder;
    const Image image = quartered(4, 4);
    EXPECT_EQ(loadImage(folder.path() / "none.png").error().cause, Cause::notFound);
    EXPECT_EQ(loadImage(folder.path()).error().cause, Cause::unreadable);
    EXPECT_EQ(savePNG(image, folder.path() / "no/folder.png").error().cause, Cause::unwritable);
    const auto full = savePNG(image, "/dev/full");
    ASSERT_FALSE(full);
    EXPECT_EQ(full.error().cause, Cause::unwritable);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST(Image, TintTakesTheColourAndKeepsTheAlpha) {
    const Image result = tinted(quartered(2, 2), Color{0.2f, 0.4f, 1, 0.5f});
    EXPECT_EQ(
        result.pixels,
        (std::vector<std::uint8_t>{
            51, 102, 255, 128, 51, 102, 255, 128, 51, 102, 255, 128, 51, 102, 255, 64}));
}

TEST(Image, ResourcesAreFoundByNameAndKept) {
    const test::TemporaryFolder folder;
    auto before = foundation::mainBundle();
    foundation::setMainBundle(foundation::Bundle({folder.path()}));
    ASSERT_TRUE(savePNG(quartered(4, 4), folder.path() / "there.png"));
    std::ofstream(folder.path() / "broken.png") << "no picture";

    const auto first = imageNamed("there.png");
    ASSERT_TRUE(first);
    EXPECT_EQ((*first)->lightProbe, nullptr);
    EXPECT_EQ(*imageNamed("there.png"), *first);
    testing::internal::CaptureStderr();
    EXPECT_EQ(imageNamed("absent.png").error().message, "\"absent.png\" is missing");
    EXPECT_EQ(imageNamed("broken.png").error().cause, Cause::malformed);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "the caller says it, once";
    foundation::setMainBundle(std::move(before));
}

TEST(Image, FineNormalsComeBackForTheirPictureOnly) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "a.normals";
    Image picture(3, 2);
    EXPECT_EQ(loadFineNormals(picture, file).error().cause, Cause::notFound);
    for (unsigned i = 0; i < 12; ++i)
        picture.fineNormals.push_back(static_cast<std::uint16_t>(i * 5461));
    ASSERT_TRUE(saveFineNormals(picture, file));
    Image same(3, 2);
    ASSERT_TRUE(loadFineNormals(same, file));
    EXPECT_EQ(same.fineNormals, picture.fineNormals);
    for (Image other : {Image(2, 2), Image(4, 2)}) {
        EXPECT_EQ(loadFineNormals(other, file).error().cause, Cause::malformed);
        EXPECT_TRUE(other.fineNormals.empty());
    }
}

TEST(Image, WebPLoads) {
    constexpr auto kRedAndBlue = std::to_array<std::uint8_t>(
        {0x52, 0x49, 0x46, 0x46, 0x1E, 0x00, 0x00, 0x00, 0x57, 0x45, 0x42, 0x50, 0x56,
         0x50, 0x38, 0x4C, 0x11, 0x00, 0x00, 0x00, 0x2F, 0x01, 0x00, 0x00, 0x00, 0x0F,
         0x10, 0xF3, 0xBF, 0xFF, 0xF3, 0x1F, 0x0E, 0x32, 0xA2, 0xFF, 0x01, 0x00});
    const auto picture = decodeImage(kRedAndBlue);
    ASSERT_TRUE(picture) << picture.error().message;
    EXPECT_EQ((*picture)->pixels, (Bytes{255, 0, 0, 255, 0, 0, 255, 255}));

    // The same picture as an extended file with Exif: turned left, so that its right end is on top.
    Bytes turned = inserted(
        Bytes(kRedAndBlue.begin(), kRedAndBlue.end()),
        12,
        {'V', 'P', '8', 'X', 10, 0, 0, 0, 8, 0},
        {0, 0, 1, 0, 0, 0, 0, 0});
    turned = inserted(
        turned,
        static_cast<std::ptrdiff_t>(turned.size()),
        {'E', 'X', 'I', 'F', 26, 0, 0, 0},
        exifOf(8));
    turned[4] = static_cast<std::uint8_t>(turned.size() - 8);
    const auto upright = decodeImage(turned);
    ASSERT_TRUE(upright) << upright.error().message;
    EXPECT_EQ((*upright)->height, 2);
    EXPECT_EQ((*upright)->pixels, (Bytes{0, 0, 255, 255, 255, 0, 0, 255}));
}

TEST(Image, TGALoadsUprightWithItsRuns) {
    const auto picture = decodeImage(runsInTGA());
    ASSERT_TRUE(picture) << picture.error().message;
    EXPECT_EQ((*picture)->pixels, (Bytes{0,   0,   255, 255, 0,   0,   255, 255, 255, 255, 255,
                                         255, 255, 255, 255, 255, 255, 0,   0,   255, 255, 0,
                                         0,   255, 255, 0,   0,   255, 0,   255, 0,   128}));
}

TEST(Image, OtherKindsOfFilesThatQtCouldDrawAreNoPictures) {
    const std::string drawing = R"(/* XPM */ static char* a[] = {"1 1 1 1", "x c #FF0000", "x"};)";
    const auto picture = decodeImage(std::vector<std::uint8_t>(drawing.begin(), drawing.end()));
    ASSERT_FALSE(picture);
    EXPECT_EQ(picture.error().cause, foundation::Cause::malformed);
}

} // namespace
} // namespace zelvo::image
