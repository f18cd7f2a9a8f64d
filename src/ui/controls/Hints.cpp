// SPDX-License-Identifier: MIT
#include "ui/controls/Hints.h"

namespace zelvo::ui {

bool hintNeeded(foundation::UserDefaults& defaults, const std::string& key, int limit) {
    const auto kept = defaults.number(key);
    if (!kept)
        defaults.set(key, 0.0);
    const double shown = kept.value_or(0.0);
    if (shown >= limit)
        return false;
    defaults.set(key, shown + 1);
    return true;
}

} // namespace zelvo::ui
