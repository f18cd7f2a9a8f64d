// SPDX-License-Identifier: MIT
#include "platform/image/reading/SVGReader.h"

#include <librsvg/rsvg.h>

#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <memory>
#include <optional>
#include <string>

namespace zelvo::image {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

constexpr std::size_t kMaxBytes = 64U << 20U;
constexpr double kDotsPerInch = 96; // CSS 2.1, 4.3.2

struct Release {
    void operator()(RsvgHandle* handle) const { g_object_unref(handle); }

    void operator()(GError* error) const { g_error_free(error); }

    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }

    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

using Handle = std::unique_ptr<RsvgHandle, Release>;

/// Takes over the error.
tl::unexpected<foundation::Error> failDrawing(GError* error) {
    const std::unique_ptr<GError, Release> held(error);
    std::string why = held ? held->message : "it cannot be drawn";
    std::ranges::replace(why, '\n', ' ');
    return fail(Cause::malformed, "the drawing is damaged (" + why + ")");
}

struct Sides {
    double width = 0;
    double height = 0;
};

/// From the first of these that the drawing has: its width and height, its view box, its shapes.
std::optional<Sides> sidesOf(RsvgHandle* handle) {
    Sides sides;
    if (rsvg_handle_get_intrinsic_size_in_pixels(handle, &sides.width, &sides.height) != FALSE)
        return sides;
    gboolean hasBox = FALSE;
    RsvgRectangle box{};
    rsvg_handle_get_intrinsic_dimensions(handle, nullptr, nullptr, nullptr, nullptr, &hasBox, &box);
    if (hasBox == FALSE &&
        rsvg_handle_get_geometry_for_element(handle, nullptr, &box, nullptr, nullptr) == FALSE)
        return std::nullopt;
    return Sides{box.width, box.height};
}

Extent extentOf(const Sides& sides) {
    const double scale =
        std::min(kDrawingSize.width / sides.width, kDrawingSize.height / sides.height);
    const auto pixels = [scale](double side) {
        return std::max(1, static_cast<int>(std::lround(side * scale)));
    };
    return {pixels(sides.width), pixels(sides.height)};
}

Result<QImage> drawn(RsvgHandle* handle, Extent extent) {
    QImage picture(extent.width, extent.height, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    const std::unique_ptr<cairo_surface_t, Release> surface(cairo_image_surface_create_for_data(
        picture.bits(),
        CAIRO_FORMAT_ARGB32,
        extent.width,
        extent.height,
        static_cast<int>(picture.bytesPerLine())));
    const std::unique_ptr<cairo_t, Release> context(cairo_create(surface.get()));
    const RsvgRectangle whole{
        0, 0, static_cast<double>(extent.width), static_cast<double>(extent.height)};
    GError* error = nullptr;
    if (rsvg_handle_render_document(handle, context.get(), &whole, &error) == FALSE)
        return failDrawing(error);
    cairo_surface_flush(surface.get());
    return picture;
}

ImagePtr straight(const QImage& picture) {
    const QImage source = picture.convertToFormat(QImage::Format_RGBA8888);
    auto image = std::make_shared<Image>(source.width(), source.height());
    std::memcpy(image->pixels.data(), source.constBits(), image->pixels.size());
    return image;
}

} // namespace

bool isSVG(std::span<const std::uint8_t> start) {
    constexpr std::array<std::uint8_t, 2> kGzip{0x1F, 0x8B};
    constexpr std::array<std::uint8_t, 3> kByteOrderMark{0xEF, 0xBB, 0xBF};
    const auto startsWith = [&start](const auto& mark) {
        return start.size() >= mark.size() && std::ranges::equal(start.first(mark.size()), mark);
    };
    if (startsWith(kGzip))
        return true;
    if (startsWith(kByteOrderMark))
        start = start.subspan(kByteOrderMark.size());
    const auto first = std::ranges::find_if(start, [](std::uint8_t byte) { return byte > ' '; });
    return first != start.end() && *first == '<';
}

Result<ImagePtr> readSVG(std::span<const std::uint8_t> file) {
    if (file.size() > kMaxBytes)
        return fail(Cause::tooLarge, "the drawing is larger than 64 MiB");
    GError* error = nullptr;
    const Handle handle(rsvg_handle_new_from_data(file.data(), file.size(), &error));
    if (!handle)
        return failDrawing(error);
    rsvg_handle_set_dpi(handle.get(), kDotsPerInch);
    const auto sides = sidesOf(handle.get());
    const auto isUsable = [](double side) { return std::isfinite(side) && side > 0; };
    if (!sides || !isUsable(sides->width) || !isUsable(sides->height))
        return fail(Cause::malformed, "the drawing has no size");
    return drawn(handle.get(), extentOf(*sides)).map(straight);
}

} // namespace zelvo::image
