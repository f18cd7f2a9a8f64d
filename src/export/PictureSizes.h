// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Size.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace zelvo::movie {

/// The sides of a movie or picture in pixels. They are even.
inline constexpr int kMinSide = 16;
inline constexpr int kMaxSide = 4096;

struct NamedSize {
    std::string_view name;
    render::Size size;
};

// clang-format off
inline constexpr auto kNamedSizes = std::to_array<NamedSize>({
    {"720p",    {1280,  720}},
    {"1080p",   {1920, 1080}},
    {"1440p",   {2560, 1440}},
    {"4k",      {3840, 2160}},
    {"square",  {1080, 1080}},
    {"upright", {1080, 1920}},
});

// clang-format on

/// Reads a name or a size such as "1920x1080". Nothing if it is neither.
[[nodiscard]] std::optional<render::Size> sizeFrom(std::string_view text);

/// For example "1920x1080".
[[nodiscard]] std::string sizeText(render::Size size);

} // namespace zelvo::movie
