// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/PressContext.h"

#include <functional>
#include <span>
#include <string_view>
#include <vector>

namespace zelvo::catalogue {

/// What a button of the catalogue shows: a picture or a text, never both.
struct Face {
    std::string_view image{}; ///< name of a picture resource
    std::string_view label{};
};

/// One named animation, camera move or effect.
struct Button {
    Face face;
    std::string_view title; ///< in the history, before the names of the nodes
    /// Touch-down.
    std::function<void(const PressContext&)> beganFunc;
    /// Lift-off, for what lasts as long as it is held; empty where a press fires once.
    std::function<void(const PressContext&)> endFunc;

    [[nodiscard]] bool isHold() const { return static_cast<bool>(endFunc); }
};

/// Where a tab stands when the row is too wide and is shown in two pages. Both count from 1.
struct PagePlace {
    int page;
    int place;
};

/// A tab of the catalogue.
struct Tab {
    std::string_view shortTitle; ///< what the tab's button shows
    std::string_view field;      ///< its name in the program
    std::string_view contents;
    std::vector<Button> (*operation)();
    PagePlace onPage;

    /// Made anew by each call.
    [[nodiscard]] std::vector<Button> buttons() const { return operation(); }
};

/// In the order of the row.
[[nodiscard]] std::span<const Tab> tabs();

/// By short title; null if there is none.
[[nodiscard]] const Tab* tabNamed(std::string_view shortTitle);

} // namespace zelvo::catalogue
