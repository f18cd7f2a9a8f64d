// SPDX-License-Identifier: MIT
#pragma once

#include "environments/SNE.h"

#include <array>
#include <string_view>

namespace zelvo::look {

/// The environments by name and number.
class SceneManager {
public:
    /// In the order of the user's strip; an index into this list is what makes an environment.
    static constexpr std::array<std::string_view, 11> sceneNames = {
        "Flat",
        "Plain",
        "Shiny",
        "Spherical",
        "Ancient",
        "Backlight",
        "Stage",
        "SpaceBox",
        "Brilliance",
        "Subtle",
        "Flares"};

    /// A new environment; null for an index without one. Environments are never kept: a return to
    /// an earlier one builds it again.
    [[nodiscard]] static SNEPtr sceneData(int index, foundation::RunLoop& runLoop);
};

} // namespace zelvo::look
