// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

namespace zelvo::ui {

/// Makes the views known, and the classes that they show. Once, before the first QML engine and the
/// first sound or movie; needs a QGuiApplication. Movies are played by the FFmpeg libraries unless
/// QT_MEDIA_BACKEND says otherwise.
void installViews();

/// Where the view of that name lies ("Main").
[[nodiscard]] QUrl viewUrl(const QString& name);

} // namespace zelvo::ui
