// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/Catalogue.h"

namespace zelvo::catalogue {

/// The "Glitch" of tab FX3, held. Its title in the history is another than its name.
[[nodiscard]] Button glitchButton(const Face& face);

} // namespace zelvo::catalogue
