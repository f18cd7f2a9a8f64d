// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/Catalogue.h"

// The tabs' operations, one source each; each makes the tab's buttons. Catalogue.cpp puts them in
// their order.

namespace zelvo::catalogue {

[[nodiscard]] std::vector<Button> showCam();
[[nodiscard]] std::vector<Button> showFlyBy();
[[nodiscard]] std::vector<Button> showFX1();
[[nodiscard]] std::vector<Button> showFX2();
[[nodiscard]] std::vector<Button> showFX3();
[[nodiscard]] std::vector<Button> showIn1();
[[nodiscard]] std::vector<Button> showIn2();
[[nodiscard]] std::vector<Button> showIn3();
[[nodiscard]] std::vector<Button> showIn4();
[[nodiscard]] std::vector<Button> showOut1();
[[nodiscard]] std::vector<Button> showOut2();
[[nodiscard]] std::vector<Button> showOut3();
[[nodiscard]] std::vector<Button> showRot();
[[nodiscard]] std::vector<Button> showTXT();

} // namespace zelvo::catalogue
