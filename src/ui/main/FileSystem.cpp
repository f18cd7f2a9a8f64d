// SPDX-License-Identifier: MIT
#include "ui/main/FileSystem.h"

#include "ui/controls/Alerts.h"

#include <QCoreApplication>

namespace zelvo::ui {

bool FileSystem::open(const std::filesystem::path& file, Alerts& alerts) {
    // Importing objects (archives) and fonts is not implemented.
    const QString title = QCoreApplication::translate("FileSystem", "Unsupported file.");
    alerts.showAlert(title.toStdString(), file.filename().string());
    return false;
}

} // namespace zelvo::ui
