// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::ui {

/// Makes the views known as qrc:/zelvo/*.qml and `Theme` as a singleton of `import Zelvo`. Once,
/// before the first QML engine; needs a QGuiApplication.
void installViews();

} // namespace zelvo::ui
