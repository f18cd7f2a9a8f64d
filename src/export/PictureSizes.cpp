// SPDX-License-Identifier: MIT
#include "export/PictureSizes.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

namespace zelvo::movie {

namespace {

[[nodiscard]] std::optional<int> sideFrom(std::string_view text) {
    int side = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), side);
    const bool isWhole = error == std::errc{} && end == text.data() + text.size();
    if (!isWhole || side < kMinSide || side > kMaxSide || side % 2 != 0)
        return std::nullopt;
    return side;
}

} // namespace

std::optional<render::Size> sizeFrom(std::string_view text) {
    const auto* const named = std::ranges::find(kNamedSizes, text, &NamedSize::name);
    if (named != kNamedSizes.end())
        return named->size;
    const auto cross = text.find('x');
    if (cross == std::string_view::npos)
        return std::nullopt;
    const auto width = sideFrom(text.substr(0, cross));
    const auto height = sideFrom(text.substr(cross + 1));
    if (!width || !height)
        return std::nullopt;
    return render::Size{*width, *height};
}

std::string sizeText(render::Size size) {
    return fmt::format("{}x{}", size.width, size.height);
}

} // namespace zelvo::movie
