// SPDX-License-Identifier: MIT
#pragma once

#include "environments/Environments.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zelvo::environments {

/// The environments by name and number.
class SceneManager {
public:
    static constexpr auto sceneNames = [] {
        std::array<std::string_view, kEnvironments.size()> names;
        std::ranges::transform(kEnvironments, names.begin(), &EnvironmentRow::name);
        return names;
    }();

    /// A new environment; null if there is none with this index. Environments are not cached: each
    /// call builds a new one.
    [[nodiscard]] static SNEPtr sceneData(int index, foundation::RunLoop& runLoop);
};

} // namespace zelvo::environments
