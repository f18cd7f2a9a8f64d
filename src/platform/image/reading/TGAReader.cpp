// SPDX-License-Identifier: MIT
#include "platform/image/reading/TGAReader.h"

// One file is the whole library; only this format of it is compiled.
#define STB_IMAGE_STATIC
#define STB_IMAGE_IMPLEMENTATION
#define STBI_ONLY_TGA
#define STBI_NO_STDIO
#include <stb/stb_image.h>

#include <algorithm>
#include <array>
#include <memory>

namespace zelvo::image {

using foundation::Cause;
using foundation::fail;

namespace {

constexpr std::uint64_t kMaxBytes = 512ULL << 20U; ///< of the decoded picture

struct Header {
    bool hasPalette;
    unsigned kind; ///< 1 to 3: palette, colours, grey; 9 to 11: the same in runs
    unsigned width;
    unsigned height;
    unsigned bits;
    std::uint64_t firstPixel; ///< behind the comment and the palette

    [[nodiscard]] std::uint64_t pixels() const { return std::uint64_t{width} * height; }

    [[nodiscard]] std::uint64_t bytesPerPixel() const { return (bits + 7) / 8; }
};

[[nodiscard]] Header headerOf(std::span<const std::uint8_t> start) {
    const auto pair = [&](std::size_t at) {
        return static_cast<unsigned>(start[at]) | static_cast<unsigned>(start[at + 1]) << 8U;
    };
    const std::uint64_t palette = start[1] == 1 ? pair(5) * ((start[7] + 7ULL) / 8) : 0;
    return {
        start[1] == 1,
        start[2],
        pair(12),
        pair(14),
        start[16],
        kTGAHeaderBytes + start[0] + palette};
}

/// The library takes what is missing for black.
[[nodiscard]] bool isCutOff(std::span<const std::uint8_t> bytes, const Header& header) {
    const bool hasRuns = header.kind > 8;
    std::uint64_t at = header.firstPixel;
    if (!hasRuns)
        return at + header.pixels() * header.bytesPerPixel() > bytes.size();
    for (std::uint64_t count = 0; count < header.pixels();) {
        if (at >= bytes.size())
            return true;
        const std::uint64_t length = (bytes[at] & 127U) + 1ULL;
        at += 1 + ((bytes[at] & 128U) != 0 ? 1 : length) * header.bytesPerPixel();
        count += length;
    }
    return at > bytes.size();
}

} // namespace

bool isTGA(std::span<const std::uint8_t> start) {
    constexpr auto kKinds = std::to_array<unsigned>({1, 2, 3, 9, 10, 11});
    constexpr auto kBits = std::to_array<unsigned>({8, 15, 16, 24, 32});
    if (start.size() < kTGAHeaderBytes || start[1] > 1)
        return false;
    const Header header = headerOf(start);
    const bool needsPalette = header.kind == 1 || header.kind == 9;
    return std::ranges::find(kKinds, header.kind) != kKinds.end() &&
           std::ranges::find(kBits, header.bits) != kBits.end() && header.width > 0 &&
           header.height > 0 && (header.hasPalette || !needsPalette);
}

foundation::Result<Image> readTGA(std::span<const std::uint8_t> bytes) {
    if (!isTGA(bytes))
        return fail(Cause::malformed, "the picture is damaged (its header is wrong)");
    const Header header = headerOf(bytes);
    if (header.pixels() * 4 > kMaxBytes)
        return fail(Cause::tooLarge, "the picture is too large; save it as a PNG or JPEG file");
    if (isCutOff(bytes, header))
        return fail(Cause::malformed, "the picture is damaged (it ends early)");
    int width = 0;
    int height = 0;
    const std::unique_ptr<stbi_uc, decltype(&stbi_image_free)> decoded(
        stbi_load_from_memory(
            bytes.data(), static_cast<int>(bytes.size()), &width, &height, nullptr, STBI_rgb_alpha),
        &stbi_image_free);
    if (!decoded)
        return fail(Cause::malformed, "the picture is damaged");
    Image image(width, height);
    std::copy_n(decoded.get(), image.pixels.size(), image.pixels.begin());
    return image;
}

} // namespace zelvo::image
