// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zelvo::ui {

/// A key as it is named on the user's keyboard: "Ctrl+Z" is "Strg+Z" in German.
[[nodiscard]] QString keyName(const QString& key);

} // namespace zelvo::ui
