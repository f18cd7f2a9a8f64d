// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::ui {

/// Makes the views known as qrc:/zelvo/*.qml and `Theme` as a singleton of `import Zelvo`. Once,
/// before the first QML engine and the first sound or movie; needs a QGuiApplication. Movies are
/// played by the FFmpeg libraries unless QT_MEDIA_BACKEND says otherwise.
void installViews();

} // namespace zelvo::ui
