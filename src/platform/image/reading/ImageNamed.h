// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"

#include <string>

namespace zelvo::image {

/// The resource picture of that name, with its light probe where one was baked
/// ("Environment001.jpg" has "Environment001.jpg.probe" beside it). Absent (null) if there is none
/// or it cannot be read (said on the console); kept, so the same name gives the same object. Any
/// thread.
[[nodiscard]] ImagePtr imageNamed(const std::string& name);

} // namespace zelvo::image
