// SPDX-License-Identifier: MIT
#pragma once

#include "app/Engine.h"
#include "app/Performance.h"
#include "platform/foundation/Result.h"

#include <filesystem>

namespace zelvo::app {

/// Styles the stage, sets duration, speed and scene, and takes the music. The music's path is taken
/// from `folder`. Errors: notFound, unreadable, malformed (the music), with the line of the
/// performance file before them.
[[nodiscard]] foundation::Result<void>
setUp(const Performance& performance, const std::filesystem::path& folder, Engine& engine);

/// One live run in which every cue comes with the first tick that reaches its time, the way a hand
/// would press. What was recorded stays in the model, to be replayed.
void perform(const Performance& performance, Engine& engine);

} // namespace zelvo::app
