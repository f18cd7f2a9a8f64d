// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMargins>
#include <QRect>

namespace zelvo::app {

/// Where a window wholly shows, as near to `wanted` as that goes: on the screen that has most of
/// it, smaller where the screen is. Places are those of the window without its frame, a title bar
/// with `frame` around it. `screens` are what windows may take up of each; without any it stays.
[[nodiscard]] QRect
whollyShown(const QRect& wanted, const QMargins& frame, const QList<QRect>& screens);

} // namespace zelvo::app
