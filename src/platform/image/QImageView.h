// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"

#include <QImage>

namespace zelvo::image {

/// The same pixels for Qt, which must not outlive the picture. For this folder's sources alone.
[[nodiscard]] QImage viewOf(const Image& image);

} // namespace zelvo::image
