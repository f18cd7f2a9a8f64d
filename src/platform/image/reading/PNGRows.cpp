// SPDX-License-Identifier: MIT
#include "platform/image/reading/PNGRows.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <csetjmp>
#include <string>
#include <utility>

namespace zelvo::image {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

constexpr std::array<std::uint8_t, 8> kSignature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

/// Wraps libpng's reader. libpng reports errors by a long jump, which must not skip a destructor.
/// So its calls are in functions without such objects, run by attempt().
class Reader {
public:
    explicit Reader(ByteSource bytes)
        : source(std::move(bytes))
        , png(png_create_read_struct(PNG_LIBPNG_VER_STRING, this, &onError, &onWarning))
        , info(png != nullptr ? png_create_info_struct(png) : nullptr) {
        if (png != nullptr)
            png_set_read_fn(png, &source, &onRead);
    }

    ~Reader() { png_destroy_read_struct(&png, &info, nullptr); }

    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    /// Runs a step. False if libpng reported an error; it is in `message`.
    template <typename Step> [[nodiscard]] bool attempt(const Step& step) {
        if (png == nullptr || info == nullptr)
            return false;
        if (setjmp(png_jmpbuf(png)) != 0) // NOLINT(cert-err52-cpp): libpng knows no other way
            return false;
        step(png, info);
        return true;
    }

    std::string message = "no memory";

private:
    [[noreturn]] static void onError(png_structp png, png_const_charp text) {
        static_cast<Reader*>(png_get_error_ptr(png))->message = text;
        png_longjmp(png, 1);
    }

    /// Warnings concern chunks that do not matter for the pixels.
    static void onWarning(png_structp, png_const_charp) {}

    static void onRead(png_structp png, png_bytep target, std::size_t count) {
        const auto& source = *static_cast<const ByteSource*>(png_get_io_ptr(png));
        if (source({target, count}) != count)
            png_error(png, "it ends early");
    }

    ByteSource source;
    png_structp png;
    png_infop info;
};

/// Sets up the conversion: from here on, rows are RGBA with 8 bits a component.
void readHeader(png_structp png, png_infop info) {
    png_read_info(png, info);
    png_set_expand(png);
    png_set_scale_16(png);
    png_set_gray_to_rgb(png);
    png_set_add_alpha(png, 0xFF, PNG_FILLER_AFTER);
    png_read_update_info(png, info);
}

void readColours(png_structp png, png_infop info, LimitedPNG& picture) {
    png_charp name = nullptr;
    int compression = 0;
    png_bytep profile = nullptr;
    png_uint_32 length = 0;
    double gamma = 0;
    if (png_get_iCCP(png, info, &name, &compression, &profile, &length) != 0) {
        picture.profile.assign(profile, profile + length);
    } else if (
        png_get_valid(png, info, PNG_INFO_sRGB) == 0 && png_get_gAMA(png, info, &gamma) != 0) {
        picture.gamma = gamma;
    }
}

} // namespace

std::optional<PNGHeader> pngHeaderOf(std::span<const std::uint8_t> bytes) {
    constexpr std::size_t kWidthAt = 16;
    constexpr std::size_t kHeightAt = 20;
    constexpr std::size_t kInterlaceAt = 28;
    if (bytes.size() < kPNGHeaderBytes || !std::ranges::equal(bytes.first(8), kSignature))
        return std::nullopt;
    const auto lengthAt = [bytes](std::size_t at) {
        const std::uint32_t length = png_get_uint_32(bytes.data() + at);
        return static_cast<int>(std::min<std::uint32_t>(length, PNG_UINT_31_MAX));
    };
    return PNGHeader{{lengthAt(kWidthAt), lengthAt(kHeightAt)}, bytes[kInterlaceAt] != 0};
}

Result<LimitedPNG> readLimitedPNG(ByteSource source) {
    Reader reader(std::move(source));
    const auto damaged = [&reader] {
        return fail(Cause::malformed, "the picture is damaged (" + reader.message + ")");
    };
    LimitedPNG picture;
    Extent extent;
    const bool begun = reader.attempt([&](png_structp png, png_infop info) {
        readHeader(png, info);
        extent.width = static_cast<int>(png_get_image_width(png, info));
        extent.height = static_cast<int>(png_get_image_height(png, info));
        readColours(png, info, picture);
    });
    if (!begun)
        return damaged();

    AreaScaler scaler(extent, limitedExtent(extent));
    std::vector<std::uint8_t> row(static_cast<std::size_t>(extent.width) * 4);
    for (int y = 0; y < extent.height; ++y) {
        const bool read = reader.attempt(
            [&row](png_structp png, png_infop) { png_read_row(png, row.data(), nullptr); });
        if (!read)
            return damaged();
        scaler.addRow(row);
    }
    picture.image = scaler.take();
    return picture;
}

} // namespace zelvo::image
