// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

namespace zelvo::ui {

// Colours that controllers pass to views. Views have their own colours in Theme.
inline const QColor kAccentColor{0x24, 0x5C, 0xF0};
inline const QColor kRecordColor{0xE2, 0x47, 0x42};
inline const QColor kButtonColor = QColor::fromRgbF(0.2231f, 0.2254f, 0.2438f);
inline const QColor kClearButtonColor = QColor::fromRgbF(0.2231f, 0.2254f, 0.2438f, 0.58f);
inline const QColor kTextColor = QColor::fromRgbF(0.95f, 0.95f, 0.95f);

} // namespace zelvo::ui
