// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/Catalogue.h"
#include "catalogue/Curve.h"
#include "stage/Nodes.h"

#include <functional>
#include <span>
#include <string_view>
#include <vector>

// The usual form of a button: an action on the chosen nodes, recorded with its title and the names
// of the nodes.

namespace zelvo::catalogue {

/// The parameters of an animation, fixed at the press and the same in each replay.
struct Take {
    const stage::Nodes& stage;
    std::vector<node::NodePtr> nodes;
    double d = 0; ///< seconds: the row's factor times the base duration at the press
    scene::TimingFunction timing{};     ///< null is linear
    scene::TimingFunction restTiming{}; ///< for nodes that are not letters, if the row has one
};

using Body = std::function<void(const Take&)>;

/// A row of a tab's table.
struct Row {
    Face face;
    std::string_view title;
    double factor = 1; ///< multiplies the base duration
    Curve timing = kNoCurve;
    void (*body)(const Take&) = nullptr;
    Curve restTiming = kNoCurve; ///< for nodes that are not letters, if different
};

/// Makes a button that resets its nodes and then runs the body, at the press and in each replay. If
/// no nodes are chosen, a press does nothing and uses no identifier.
[[nodiscard]] Button commonButton(const Row& row, Body body);

[[nodiscard]] std::vector<Button> commonButtons(std::span<const Row> rows);

} // namespace zelvo::catalogue
