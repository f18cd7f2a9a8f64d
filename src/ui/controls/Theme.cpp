// SPDX-License-Identifier: MIT
#include "ui/controls/Theme.h"

#include <QFontDatabase>

namespace zelvo::ui {

Theme::Theme(QObject* parent)
    : QObject(parent)
    , digitsFamily(QFontDatabase::systemFont(QFontDatabase::FixedFont).family()) {}

} // namespace zelvo::ui
