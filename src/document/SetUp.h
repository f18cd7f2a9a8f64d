// SPDX-License-Identifier: MIT
#pragma once

#include "document/Performance.h"
#include "document/StageMedia.h"
#include "model/Model.h"
#include "platform/foundation/Result.h"

#include <filesystem>
#include <string_view>
#include <vector>

namespace zelvo::document {

/// The style with all that it leaves out taken from `defaults`, which has every field.
[[nodiscard]] Style completed(Style style, const Style& defaults);

/// Styles the stage, and sets duration, speed, scene, background and music, where they differ. Paths
/// must be absolute (`resolved`), and `media` what `readMedia` gave. Returns what is missing: fonts and
/// files. They leave their place empty, but the model keeps their names.
[[nodiscard]] std::vector<foundation::Problem>
applyStyle(const Style& style, StageMedia media, model::Model& model);

/// The same for a command, which needs everything. File names are relative to `folder`. The error is
/// the first thing that is missing.
[[nodiscard]] tl::expected<void, foundation::Problem>
setUp(const Style& style, const std::filesystem::path& folder, model::Model& model);

/// The speed with this title. An unknown one is a programming error.
[[nodiscard]] model::AnimationRatio speedTitled(std::string_view title);

} // namespace zelvo::document
