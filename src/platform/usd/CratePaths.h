// SPDX-License-Identifier: MIT
#pragma once

#include "platform/usd/ByteReader.h"
#include "platform/usd/CrateTables.h"

#include <vector>

namespace zelvo::usd {

// Both fill the table of paths, which has its final size already. False if the tree is damaged,
// names a path twice or is deeper than kMaxDepth.

/// The tree as three packed lists (from 0.4.0).
[[nodiscard]] bool readPackedPaths(ByteReader& reader, std::vector<CratePath>& paths);

/// The tree as records (before 0.4.0). The reader stands at the root's record, in the whole file.
[[nodiscard]] bool
readPathTree(ByteReader& reader, CrateVersion version, std::vector<CratePath>& paths);

} // namespace zelvo::usd
