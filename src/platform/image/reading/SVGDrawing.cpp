// SPDX-License-Identifier: MIT
#include "platform/image/reading/SVGDrawing.h"

#include <librsvg/rsvg.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

namespace zelvo::image {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

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

Drawing emptyDrawing(const Sides& sides) {
    const double scale =
        std::min(kDrawingSize.width / sides.width, kDrawingSize.height / sides.height);
    const auto pixels = [scale](double side) {
        return std::max(1, static_cast<int>(std::lround(side * scale)));
    };
    Drawing drawing{pixels(sides.width), pixels(sides.height), {}};
    drawing.pixels.resize(
        static_cast<std::size_t>(drawing.width) * static_cast<std::size_t>(drawing.height));
    return drawing;
}

Result<Drawing> drawn(RsvgHandle* handle, Drawing drawing) {
    constexpr int kPixelBytes = 4;
    const std::unique_ptr<cairo_surface_t, Release> surface(cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(drawing.pixels.data()),
        CAIRO_FORMAT_ARGB32,
        drawing.width,
        drawing.height,
        drawing.width * kPixelBytes));
    const std::unique_ptr<cairo_t, Release> context(cairo_create(surface.get()));
    const RsvgRectangle whole{
        0, 0, static_cast<double>(drawing.width), static_cast<double>(drawing.height)};
    GError* error = nullptr;
    if (rsvg_handle_render_document(handle, context.get(), &whole, &error) == FALSE)
        return failDrawing(error);
    cairo_surface_flush(surface.get());
    return drawing;
}

} // namespace

Result<Drawing> drawSVG(std::span<const std::uint8_t> file) {
    GError* error = nullptr;
    const Handle handle(rsvg_handle_new_from_data(file.data(), file.size(), &error));
    if (!handle)
        return failDrawing(error);
    rsvg_handle_set_dpi(handle.get(), kDotsPerInch);
    const auto sides = sidesOf(handle.get());
    const auto isUsable = [](double side) { return std::isfinite(side) && side > 0; };
    if (!sides || !isUsable(sides->width) || !isUsable(sides->height))
        return fail(Cause::malformed, "the drawing has no size");
    return drawn(handle.get(), emptyDrawing(*sides));
}

} // namespace zelvo::image
