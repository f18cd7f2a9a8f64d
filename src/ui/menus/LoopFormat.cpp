// SPDX-License-Identifier: MIT
#include "ui/menus/LoopFormat.h"

#include "platform/foundation/Folders.h"

#include <QUrl>

namespace zelvo::ui {

QString loopOf(std::string_view title) {
    const auto file = foundation::mainBundle().path(catalogue::loopName(title));
    if (file.empty())
        return {};
    return QUrl::fromLocalFile(QString::fromStdString(file.string())).toString(QUrl::FullyEncoded);
}

} // namespace zelvo::ui
