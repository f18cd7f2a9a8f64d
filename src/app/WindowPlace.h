// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMargins>
#include <QRect>

namespace zelvo::app {

/// Moves a window so that all of it is visible. It goes to the screen that shows most of `wanted`,
/// as near to it as possible, and is made smaller only if the screen is too small. Rectangles do
/// not include the title bar and borders; `frame` says how wide those are. `screens` are the areas
/// that windows can use; if there are none, the result is `wanted`.
[[nodiscard]] QRect
whollyShown(const QRect& wanted, const QMargins& frame, const QList<QRect>& screens);

} // namespace zelvo::app
