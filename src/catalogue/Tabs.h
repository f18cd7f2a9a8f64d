// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/Catalogue.h"

// One function for each tab, which makes its buttons; each has its own source file. The order of
// the tabs is in Catalogue.cpp.

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
