// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace zelvo::ui {

/// The lists whose entries have a small picture.
enum class ThumbnailKind { material, environment, shape, mask };

/// The resource with the picture of an entry: "thumbnails/material-iron-plastic.png" for the
/// material "Iron / Plastic".
[[nodiscard]] std::string thumbnailName(ThumbnailKind kind, std::string_view entry);

} // namespace zelvo::ui
