// SPDX-License-Identifier: MIT
#include "ui/screens/Sharing.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>

namespace zelvo::ui {

Sharing Sharing::desktop() {
    return {
        .open = [](const QUrl& what) { return QDesktopServices::openUrl(what); },
        .copyText = [](const QString& text) { QGuiApplication::clipboard()->setText(text); },
        .requestReview = {}};
}

} // namespace zelvo::ui
