// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

namespace zelvo::ui {

/// Registers the views and the classes they show. Call it once, before the first QML engine and the
/// first sound or movie; needs a QGuiApplication. Movies are played with FFmpeg unless
/// QT_MEDIA_BACKEND says otherwise.
void installViews();

/// The URL of the view with this name ("Main").
[[nodiscard]] QUrl viewUrl(const QString& name);
/// The resource of the icon with this name ("Zelvo").
[[nodiscard]] QString iconFile(const QString& name);

} // namespace zelvo::ui
