// SPDX-License-Identifier: MIT
#pragma once

#include "app/Engine.h"
#include "app/Performance.h"
#include "platform/foundation/Result.h"

#include <filesystem>

namespace zelvo::app {

/// Styles the stage, sets duration, speed, scene and background, and loads the music. File names in
/// the performance are relative to `folder`. Errors: the picture or the music cannot be used
/// (notFound, unreadable, malformed); the message begins with the line in the performance file.
[[nodiscard]] foundation::Result<void>
setUp(const Performance& performance, const std::filesystem::path& folder, Engine& engine);

/// Performs in a live run, like a user: each cue comes with the first tick that reaches its time.
/// The model keeps the recording for the export.
void perform(const Performance& performance, Engine& engine);

} // namespace zelvo::app
