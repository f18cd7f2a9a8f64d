// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/PressContext.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace zelvo::catalogue {

/// What is shown on a button: either a picture or a text.
struct Face {
    std::string_view image{}; ///< name of a picture resource
    std::string_view label{};
};

/// A button for one animation, camera move or effect.
struct Button {
    Face face;
    std::string_view title; ///< in the history, before the names of the nodes
    /// Called when the button is pressed.
    std::function<void(const PressContext&)> beganFunc;
    /// Called when it is released; empty for buttons that act only when pressed.
    std::function<void(const PressContext&)> endFunc;

    [[nodiscard]] bool isHold() const { return static_cast<bool>(endFunc); }
};

/// The page and place of a tab when the row is shown on two pages. Both count from 1.
struct PagePlace {
    int page;
    int place;
};

/// What the buttons of a tab are for. In the order of the row.
enum class Group { in, letters, turns, camera, effects, out };

inline constexpr int kGroups = 6;

/// A tab of the catalogue.
struct Tab {
    std::string_view shortTitle; ///< shown on the tab's button
    std::string_view field;      ///< used in the program
    Group group;
    std::string_view contents;
    std::vector<Button> (*operation)();
    PagePlace onPage;

    /// The buttons are made anew by each call.
    [[nodiscard]] std::vector<Button> buttons() const { return operation(); }
};

/// In the order of the row.
[[nodiscard]] std::span<const Tab> tabs();

/// Presses a button of the tab. The records keep what was pressed and the seed of what the press draws
/// at random, so that they can be saved.
void press(const Tab& tab, const Button& button, const PressContext& context, std::uint32_t seed);

/// Releases a held button.
void release(const Button& button, const PressContext& context);

/// Finds a tab by its short title; null if there is none.
[[nodiscard]] const Tab* tabNamed(std::string_view shortTitle);

/// The group of the tab with this short title, which a ButtonPress records; none if there is no such
/// tab.
[[nodiscard]] std::optional<Group> groupOf(std::string_view shortTitle);

} // namespace zelvo::catalogue
