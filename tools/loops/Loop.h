// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/Catalogue.h"
#include "platform/render/SCNRenderer.h"

#include <QByteArray>

#include <filesystem>

namespace zelvo::loops {

/// Presses a button of the tab on a small stage, and films what it does. Returns the loop as a JPEG
/// of at most catalogue::ActionLoop::kMaxBytes. `temporary` is a folder for settings, which stays
/// empty. The same button gives the same bytes.
[[nodiscard]] QByteArray makeLoop(
    render::SCNRenderer& renderer,
    const std::filesystem::path& temporary,
    const catalogue::Tab& tab,
    const catalogue::Button& button);

} // namespace zelvo::loops
