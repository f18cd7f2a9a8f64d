// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/Catalogue.h"

#include <QColor>

#include <array>

namespace zelvo::ui {

/// The colour of a group of the catalogue's tabs, for bars, marks and small texts on dark grounds.
/// In and out are green and orange, the others lie around the circle of hues. All are about equally
/// bright, so that no group seems more important.
[[nodiscard]] inline QColor groupColor(catalogue::Group group) {
    static const std::array<QColor, catalogue::kGroups> colors{
        QColor(0x63, 0xD4, 0x8C), // in
        QColor(0xF0, 0xC8, 0x50), // letters
        QColor(0x4F, 0xC6, 0xEE), // turns
        QColor(0xAD, 0xA4, 0xFF), // camera
        QColor(0xF0, 0x86, 0xCB), // effects
        QColor(0xFF, 0x90, 0x66), // out
    };
    return colors.at(static_cast<std::size_t>(group));
}

} // namespace zelvo::ui
