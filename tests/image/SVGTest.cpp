// SPDX-License-Identifier: MIT
#include "image/ImageFiles.h"
#include "platform/image/reading/ImageReader.h"
#include "platform/image/reading/SVGDrawing.h"
#include "platform/image/reading/SVGReader.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace zelvo::image {
namespace {

foundation::Result<ImagePtr> drawn(const std::string& text) {
    return decodeImage({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

std::string svg(const std::string& attributes, const std::string& body) {
    return fmt::format(R"(<svg xmlns="http://www.w3.org/2000/svg" {}>{}</svg>)", attributes, body);
}

unsigned alphaAt(const Image& image, double x, double y) {
    const auto column = static_cast<std::size_t>(x * image.width);
    const auto row = static_cast<std::size_t>(y * image.height);
    return image.pixels[(row * static_cast<std::size_t>(image.width) + column) * 4 + 3];
}

TEST(SVG, SmallDrawingsFillThe4KFrameWithSharpEdgesAndStraightAlpha) {
    const auto picture = drawn(
        "\n \n" + svg(R"(width="20" height="10")",
                      R"(<circle cx="10" cy="5" r="5" fill="#ff0000" fill-opacity="0.5"/>)"));
    ASSERT_TRUE(picture) << picture.error().message;
    const Image& image = **picture;
    EXPECT_EQ(image.width, kDrawingSize.width);
    EXPECT_EQ(image.height, kDrawingSize.width / 2);
    EXPECT_EQ(alphaAt(image, 0.02, 0.02), 0U);
    EXPECT_EQ(alphaAt(image, 0.5, 0.5), 128U);
    const auto middle =
        4 * static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height / 2);
    int blended = 0; // pixels between none and all of the circle, in the row of its middle
    for (std::size_t at = middle; at < middle + static_cast<std::size_t>(image.width) * 4;
         at += 4) {
        const unsigned alpha = image.pixels[at + 3];
        blended += alpha > 0 && alpha < 128 ? 1 : 0;
        if (alpha > 16) {
            EXPECT_GT(image.pixels[at], 250U);
        }
    }
    EXPECT_LE(blended, 4);
}

TEST(SVG, TakesItsSidesFromWhatItHas) {
    struct Row {
        const char* attributes;
        Extent extent;
    };

    // clang-format off
    const Row rows[] = {
        {R"(width="50mm" height="200mm")",                      {540, 2160} },
        {R"(viewBox="10 10 300 100")",                          {3840, 1280}},
        {R"(width="100%" height="100%" viewBox="0 0 90 90")",   {2160, 2160}},
        {"",                                                    {2160, 2160}}, // of the square
        {R"(width="100000" height="1")",                        {3840, 1}   },
    };
    // clang-format on
    for (const Row& row : rows) {
        const auto picture = drawn(svg(row.attributes, R"(<path d="M 40 40 h 20 v 20 h -20 z"/>)"));
        ASSERT_TRUE(picture) << row.attributes << picture.error().message;
        EXPECT_EQ((*picture)->width, row.extent.width) << row.attributes;
        EXPECT_EQ((*picture)->height, row.extent.height) << row.attributes;
    }
    for (const char* const none : {R"(width="0" height="5")", R"(width="-3" height="5")", ""})
        EXPECT_FALSE(drawn(svg(none, ""))) << none;
}

TEST(SVG, ReadsNoOtherFiles) {
    const test::TemporaryFolder folder;
    const auto other = folder.path() / "other.png";
    ASSERT_TRUE(savePNG(quartered(4, 4), other));
    const auto picture = drawn(
        svg(R"(width="4" height="4" xmlns:xlink="http://www.w3.org/1999/xlink")",
            fmt::format(
                R"(<image width="4" height="4" xlink:href="file://{0}" href="{0}"/>)",
                other.string())));
    ASSERT_TRUE(picture);
    EXPECT_EQ(alphaAt(**picture, 0.25, 0.25), 0U);
}

TEST(SVG, DamagedAndHostileDrawingsEndWithAWord) {
    std::string entities = R"(<!DOCTYPE svg [<!ENTITY e0 "<path d='M0 0h1v1z'/>">)";
    for (int i = 1; i < 30; ++i)
        entities += fmt::format(R"(<!ENTITY e{0} "&e{1};&e{1};&e{1};">)", i, i - 1);
    const std::string whole = svg(R"(width="4" height="4")", "<g><path d='M0 0h4v4z'/></g>");
    for (const std::string& text :
         {whole.substr(0, whole.size() / 2),
          entities + "]>" + svg(R"(width="4" height="4")", "&e29;"),
          std::string("<html><body>no drawing</body></html>"),
          std::string("\x1F\x8B\x08 cut off")}) {
        const auto picture = drawn(text);
        ASSERT_FALSE(picture) << text.substr(0, 100);
        EXPECT_EQ(picture.error().cause, foundation::Cause::malformed);
        EXPECT_EQ(picture.error().message.find('\n'), std::string::npos);
    }
}

std::string manyUses() {
    std::string body = R"(<g id="a0"><circle r="1900" fill-opacity="0.01"/></g>)";
    for (int i = 1; i < 6; ++i) {
        body += fmt::format(R"(<g id="a{}">)", i);
        for (int n = 0; n < 10; ++n)
            body += fmt::format(R"(<use href="#a{}"/>)", i - 1);
        body += "</g>";
    }
    return svg(R"(width="3840" height="2160")", body);
}

std::string nestedBlurs() {
    std::string body = R"(<filter id="f" width="100%" height="100%" x="0" y="0">)"
                       R"(<feGaussianBlur stdDeviation="900 700"/></filter>)";
    for (int i = 0; i < 200; ++i)
        body += "<g filter='url(#f)'>";
    body += R"(<circle r="1900"/>)";
    for (int i = 0; i < 200; ++i)
        body += "</g>";
    return svg(R"(width="3840" height="2160")", body);
}

/// Layers, each with a surface of the whole picture: gigabytes.
[[maybe_unused]] std::string nestedLayers() {
    std::string body;
    for (int i = 0; i < 150; ++i)
        body += R"(<g opacity="0.9"><rect width="1" height="1"/>)";
    for (int i = 0; i < 150; ++i)
        body += "</g>";
    return svg(R"(width="3840" height="2160")", body);
}

std::span<const std::uint8_t> bytesOf(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

TEST(SVG, DrawingsThatAskForHoursOrGigabytesAreRefusedAndCanBeStopped) {
    const std::pair<std::string, const char*> rows[] = {
        {manyUses(), "longer than 1 second"},
        {nestedBlurs(), "make it simpler"}, // its time or its memory ends first
    };
    for (const auto& [hostile, why] : rows) {
        const auto refused = readSVG(bytesOf(hostile), {}, 1);
        ASSERT_FALSE(refused);
        EXPECT_EQ(refused.error().cause, foundation::Cause::tooLarge);
        EXPECT_NE(refused.error().message.find(why), std::string::npos) << refused.error().message;
        int asked = 0;
        const auto stopped = readSVG(bytesOf(hostile), [&asked] { return ++asked > 5; });
        ASSERT_FALSE(stopped);
        EXPECT_EQ(stopped.error().cause, foundation::Cause::cancelled);
    }
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // they need terabytes
    const auto refused = readSVG(bytesOf(nestedLayers()));
    ASSERT_FALSE(refused);
    EXPECT_NE(refused.error().message.find("more memory"), std::string::npos);
#endif
}

} // namespace
} // namespace zelvo::image
