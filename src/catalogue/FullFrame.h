// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/Catalogue.h"

namespace zelvo::catalogue {

/// The held button "Glitch" of tab FX3. In the history it has a different title.
[[nodiscard]] Button glitchButton(const Face& face);

} // namespace zelvo::catalogue
