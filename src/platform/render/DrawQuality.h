// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace zelvo::render {

/// How much work goes into what is soft anyway: shadow edges, mirror images, dark places on floors.
enum class Detail {
    full,
    /// For a picture that another one replaces at once: fewer lookups, smaller pictures, each of
    /// them drawn in every other frame. What is sharp stays the same. Only SCNView does so, and only
    /// where no graphics card draws.
    moving,
    /// For a quick look at a movie: as little as for a moving picture, but nothing is a frame late,
    /// so that the same frames are drawn each time.
    coarse
};

/// Whether a picture that is kept from frame to frame may be a frame late.
enum class Refresh { now, later };

/// How finely a picture is drawn.
struct DrawQuality {
    /// Drawn size over the size of the picture, kMinOversampling to 4. It makes edges, patterns and
    /// highlights smooth. The cost grows with its square. Below 1 the picture is drawn smaller and
    /// enlarged.
    double oversampling = 1;
    /// Places in a drawn pixel where edges are looked up: 1 or 4. It makes edges smooth. Light is
    /// worked out once for a pixel, so 4 cost less than an oversampling of 2.
    int samples = 4;
    /// Number of drawings of a frame, each shifted by a part of a pixel; the picture is their mean.
    /// For movies and single pictures only, as the next one.
    int passes = 1;
    /// Moments of motion blur in a frame; 1: none. There are at least as many passes as moments.
    int moments = 1;
    Detail detail = Detail::full;

    /// A multiple of the moments.
    [[nodiscard]] int passesDrawn() const { return (passes + moments - 1) / moments * moments; }

    static constexpr double kMinOversampling = 0.25;
    static constexpr int kMaxMoments = 64;

    friend bool operator==(const DrawQuality&, const DrawQuality&) = default;
};

/// A quality for movies, with the name that a user chooses it by.
struct NamedQuality {
    std::string_view name;
    DrawQuality quality;
};

// clang-format off
inline constexpr auto kQualities = std::to_array<NamedQuality>({
    {"draft",    {.oversampling = 1.0 / 3, .samples = 4, .detail = Detail::coarse}},
    {"standard", {.oversampling = 1,   .samples = 4}},
    {"finest",   {.oversampling = 1,   .samples = 4, .passes = 16}},
});

// clang-format on

} // namespace zelvo::render
