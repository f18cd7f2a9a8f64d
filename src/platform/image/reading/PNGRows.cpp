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

/// Sets up the conversion: from here on, rows are RGBA with 8 bits a component. Returns how often
/// all rows are to be read.
int readHeader(png_structp png, png_infop info) {
    png_read_info(png, info);
    png_set_expand(png);
    png_set_scale_16(png);
    png_set_gray_to_rgb(png);
    png_set_add_alpha(png, 0xFF, PNG_FILLER_AFTER);
    const int passes = png_set_interlace_handling(png);
    png_read_update_info(png, info);
    return passes;
}

void readProfile(png_structp png, png_infop info, LimitedPNG& picture) {
    png_charp name = nullptr;
    int compression = 0;
    png_bytep profile = nullptr;
    png_uint_32 length = 0;
    if (png_get_iCCP(png, info, &name, &compression, &profile, &length) != 0)
        picture.profile.assign(profile, profile + length);
}

void readGamma(png_structp png, png_infop info, LimitedPNG& picture) {
    double gamma = 0;
    if (png_get_valid(png, info, PNG_INFO_sRGB) != 0 || png_get_gAMA(png, info, &gamma) == 0)
        return;
    picture.gamma = gamma;
    Chromaticities c{};
    auto& [whiteX, whiteY] = c.white;
    auto& [redX, redY] = c.red;
    auto& [greenX, greenY] = c.green;
    auto& [blueX, blueY] = c.blue;
    const png_uint_32 isThere =
        png_get_cHRM(png, info, &whiteX, &whiteY, &redX, &redY, &greenX, &greenY, &blueX, &blueY);
    if (isThere != 0)
        picture.chromaticities = c;
}

[[nodiscard]] bool readRow(Reader& reader, std::uint8_t* row) {
    return reader.attempt([row](png_structp png, png_infop) { png_read_row(png, row, nullptr); });
}

/// Every pass fills in some pixels of some rows.
[[nodiscard]] bool readPasses(Reader& reader, int passes, Image& image) {
    const auto rowBytes = static_cast<std::size_t>(image.width) * 4;
    for (int pass = 0; pass < passes; ++pass) {
        for (int y = 0; y < image.height; ++y) {
            if (!readRow(reader, image.pixels.data() + static_cast<std::size_t>(y) * rowBytes))
                return false;
        }
    }
    return true;
}

Image scaledDown(const Image& image, Extent result) {
    AreaScaler scaler({image.width, image.height}, result);
    const auto rowBytes = static_cast<std::size_t>(image.width) * 4;
    for (std::size_t at = 0; at < image.pixels.size(); at += rowBytes)
        scaler.addRow({image.pixels.data() + at, rowBytes});
    return scaler.take();
}

/// Nothing if libpng reported an error.
std::optional<Image> readRows(Reader& reader, Extent extent, int passes) {
    const Extent result = limitedExtent(extent);
    const bool isLarge = result.width != extent.width || result.height != extent.height;
    if (isLarge && passes == 1) {
        AreaScaler scaler(extent, result);
        std::vector<std::uint8_t> row(static_cast<std::size_t>(extent.width) * 4);
        for (int y = 0; y < extent.height; ++y) {
            if (!readRow(reader, row.data()))
                return {};
            scaler.addRow(row);
        }
        return scaler.take();
    }
    Image image(extent.width, extent.height);
    if (!readPasses(reader, passes, image))
        return {};
    return isLarge ? scaledDown(image, result) : std::move(image);
}

} // namespace

bool isPNG(std::span<const std::uint8_t> bytes) {
    return bytes.size() >= kSignature.size() && std::ranges::equal(bytes.first(8), kSignature);
}

std::optional<PNGHeader> pngHeaderOf(std::span<const std::uint8_t> bytes) {
    constexpr std::size_t kWidthAt = 16;
    constexpr std::size_t kHeightAt = 20;
    constexpr std::size_t kInterlaceAt = 28;
    if (bytes.size() < kPNGHeaderBytes || !isPNG(bytes))
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
    int passes = 1;
    const bool begun = reader.attempt([&](png_structp png, png_infop info) {
        passes = readHeader(png, info);
        extent.width = static_cast<int>(png_get_image_width(png, info));
        extent.height = static_cast<int>(png_get_image_height(png, info));
        readProfile(png, info, picture);
        readGamma(png, info, picture);
    });
    if (!begun)
        return damaged();
    auto image = readRows(reader, extent, passes);
    if (!image)
        return damaged();
    picture.image = *std::move(image);
    return picture;
}

} // namespace zelvo::image
