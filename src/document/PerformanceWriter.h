// SPDX-License-Identifier: MIT
#pragma once

#include "document/Performance.h"

#include <string>

namespace zelvo::document {

/// The text of a performance file: JSON that the reader reads, a line for each cue. Numbers have the
/// digits that give the same single-precision value again.
[[nodiscard]] std::string written(const Performance& performance);

} // namespace zelvo::document
