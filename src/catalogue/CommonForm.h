// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/Catalogue.h"
#include "catalogue/Curve.h"
#include "stage/Nodes.h"

#include <functional>
#include <span>
#include <string_view>
#include <vector>

// The form that most buttons have: an action on the affected nodes, recorded with its title and the
// nodes' names.

namespace zelvo::catalogue {

/// What is fixed at the press and the same in each replay.
struct Take {
    const core::Nodes& stage;
    std::vector<core::NodePtr> nodes;
    double d = 0; ///< seconds: the row's factor times the base duration at the press
    scene::TimingFunction timing{};     ///< null is linear
    scene::TimingFunction restTiming{}; ///< of what is not a letter, where the row says so
};

using Body = std::function<void(const Take&)>;

/// A row of a tab's table.
struct Row {
    Face face;
    std::string_view title;
    double factor = 1; ///< times the base duration
    Curve timing = kNoCurve;
    void (*body)(const Take&) = nullptr;
    Curve restTiming = kNoCurve; ///< of what is not a letter, where it differs
};

/// A button that brings its nodes home and then runs the body, now and in each replay. With no
/// nodes affected a press does nothing and takes no identifier.
[[nodiscard]] Button commonButton(const Row& row, Body body);

[[nodiscard]] std::vector<Button> commonButtons(std::span<const Row> rows);

} // namespace zelvo::catalogue
