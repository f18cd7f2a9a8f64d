// SPDX-License-Identifier: MIT
#pragma once

#include "environments/Environments.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zelvo::look {

/// The environments by name and number.
class SceneManager {
public:
    static constexpr auto sceneNames = [] {
        std::array<std::string_view, kEnvironments.size()> names;
        std::ranges::transform(kEnvironments, names.begin(), &EnvironmentRow::name);
        return names;
    }();

    /// A new environment; null for an index without one. Environments are never kept: a return to
    /// an earlier one builds it again.
    [[nodiscard]] static SNEPtr sceneData(int index, foundation::RunLoop& runLoop);
};

} // namespace zelvo::look
