// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"

#include <string>

namespace zelvo::image {

/// The resource picture with this name, and its light probe if there is one
/// ("Environment001.jpg.probe" for "Environment001.jpg"). Results are cached, so a name always gives
/// the same object. Errors: `notFound`, and those of loadImage. Any thread.
[[nodiscard]] foundation::Result<ImagePtr> imageNamed(const std::string& name);

/// The same for a picture that belongs to the program: where it is missing or damaged, the process
/// ends with a line that says so.
[[nodiscard]] ImagePtr requiredImage(const std::string& name);

/// The same, with its light probe.
[[nodiscard]] ImagePtr requiredEnvironment(const std::string& name);

} // namespace zelvo::image
