// SPDX-License-Identifier: MIT
// How the style panel asks for a picture.
#include "ui/controls/Alerts.h"
#include "ui/imports/PictureImporter.h"
#include "ui/layouter/LayouterMenu.h"

#include <QDir>
#include <QStandardPaths>

namespace zelvo::ui {

namespace {

/// The user's folder of that kind; the home folder if there is none.
QUrl folderOf(QStandardPaths::StandardLocation kind) {
    const QString folder = QStandardPaths::writableLocation(kind);
    return QUrl::fromLocalFile(QDir(folder).exists() ? folder : QDir::homePath());
}

} // namespace

void LayouterMenu::showImportOptions() {
    const auto ask = [this](QStandardPaths::StandardLocation kind) {
        return lifetime.guard([this, kind] { Q_EMIT pictureAsked(folderOf(kind)); });
    };
    services.alerts.show({
        .title = tr("Import").toStdString(),
        .message = tr("from ...").toStdString(),
        .actions =
            {{.title = tr("Photos").toStdString(),
              .handler = ask(QStandardPaths::PicturesLocation)},
             {.title = tr("Documents").toStdString(),
              .handler = ask(QStandardPaths::DocumentsLocation)},
             {.title = tr("Cancel").toStdString(), .role = AlertRole::cancel}},
    });
}

void LayouterMenu::pictureWasPicked(const QUrl& file) const {
    if (openPicture)
        openPicture(file);
}

QStringList LayouterMenu::pictureFilters() {
    return PictureImporter::nameFilters();
}

void LayouterMenu::imageDidChange() {
    if (currentOption_ == CurrentOption::image)
        refresh();
}

} // namespace zelvo::ui
