// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <QByteArray>

#include <filesystem>

namespace zelvo::previews {

/// Draws the preview of a template: some seconds of its middle, whose end passes softly into their
/// beginning. Returns a JPEG of at most TemplatePreview::kMaxBytes. Errors: `unavailable` if the
/// machine cannot draw, and those of reading the performance.
[[nodiscard]] foundation::Result<QByteArray> makePreview(const std::filesystem::path& performance);

} // namespace zelvo::previews
