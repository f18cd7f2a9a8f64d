// SPDX-License-Identifier: MIT
#include "ui/shared/Signal.h"

namespace zelvo::ui {

Signals& signals() {
    static Signals all;
    return all;
}

} // namespace zelvo::ui
