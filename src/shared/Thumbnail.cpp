// SPDX-License-Identifier: MIT
#include "shared/Thumbnail.h"

#include <array>
#include <cctype>

namespace zelvo::ui {

namespace {

constexpr std::array kPrefixes{"material", "environment", "shape", "mask"};

} // namespace

std::string thumbnailName(ThumbnailKind kind, std::string_view entry) {
    std::string name =
        std::string("thumbnails/") + kPrefixes.at(static_cast<std::size_t>(kind)) + "-";
    for (const char character : entry) {
        const auto letter = static_cast<unsigned char>(character);
        if (std::isalnum(letter) != 0) {
            name += static_cast<char>(std::tolower(letter));
        } else if (name.back() != '-') {
            name += '-';
        }
    }
    return name + ".png";
}

} // namespace zelvo::ui
