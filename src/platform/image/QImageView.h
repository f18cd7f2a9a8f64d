// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"

#include <QImage>

namespace zelvo::image {

/// A view of the pixels for Qt; must not outlive the picture. Only for this folder.
[[nodiscard]] QImage viewOf(const Image& image);

} // namespace zelvo::image
