// SPDX-License-Identifier: MIT
#include "shared/Signal.h"

namespace zelvo::ui {

Signals& signals() {
    static Signals all;
    return all;
}

} // namespace zelvo::ui
