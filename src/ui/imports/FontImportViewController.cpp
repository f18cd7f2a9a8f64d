// SPDX-License-Identifier: MIT
#include "ui/imports/FontImportViewController.h"

#include "content/FontManager.h"
#include "platform/foundation/RunLoop.h"
#include "platform/text/NameOrder.h"
#include "ui/controls/Alerts.h"
#include "ui/imports/FontImporter.h"

#include <QStandardPaths>

#include <algorithm>
#include <cstddef>

namespace zelvo::ui {

FontImportViewController::FontImportViewController(const Services& given)
    : services(given)
    , pictures(services.runLoop) {
    services.fonts.fontsChanged.subscribe(lifetime, [this] { reload(); });
    reload();
}

void FontImportViewController::setDelegate(
    FontImportViewControllerDelegate& given, const foundation::Lifetime& itsLifetime) {
    delegate.emplace(Delegate{given, itsLifetime.watch()});
}

void FontImportViewController::reload() {
    importedFonts = services.fonts.importedFiles();
    std::ranges::sort(importedFonts, &text::comesBefore);
    Q_EMIT changed();
}

QString FontImportViewController::title() const {
    return tr("Imported Fonts (%1)").arg(importedFonts.size());
}

QStringList FontImportViewController::rows() const {
    QStringList names;
    for (const std::string& name : importedFonts)
        names.append(QString::fromStdString(name));
    return names;
}

bool FontImportViewController::isRow(int row) const {
    return row >= 0 && static_cast<std::size_t>(row) < importedFonts.size();
}

FontFile FontImportViewController::fontFile(int row) const {
    if (!isRow(row))
        return {};
    const auto file = services.fonts.folder() / importedFonts[static_cast<std::size_t>(row)];
    return {.path = QString::fromStdString(file.string())};
}

QStringList FontImportViewController::nameFilters() {
    return {
        tr("Fonts and archives (%1)").arg("*.ttf *.otf *.ttc *.otc *.woff *.woff2 *.zip"),
        tr("All files (*)")};
}

QUrl FontImportViewController::downloads() {
    return QUrl::fromLocalFile(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
}

void FontImportViewController::showHowto() {
    const QStringList paragraphs{
        tr("You can install fonts easily with Safari / Mail using the integrated 'open in / share' "
           "service."),
        tr("OTF (OpenType Format) and TTF (TrueType Format) fonts are supported, even when "
           "zipped."),
        tr("NOTE: Before you install / use a font, make sure you have the proper license for it.")};
    services.alerts.showAlert(
        tr("How to install fonts").toStdString(),
        QString("\n%1 \n\n%2\n\n%3")
            .arg(paragraphs[0], paragraphs[1], paragraphs[2])
            .toStdString());
}

void FontImportViewController::importFrom(const QUrl& file) {
    services.runLoop.post(lifetime.guard([this, file] {
        (void)FontImporter(services).importFile(file.toLocalFile().toStdString());
    }));
}

void FontImportViewController::deleteRow(int row) {
    if (isRow(row))
        services.fonts.deleteFont(std::string(importedFonts[static_cast<std::size_t>(row)]));
}

void FontImportViewController::pickRow(int row) {
    std::vector<std::string> names = services.fonts.importedNames();
    std::ranges::sort(names, &text::comesBefore);
    const auto place = static_cast<std::size_t>(row);
    const bool isThere = row >= 0 && place < names.size();
    if (isThere && delegate && !delegate->lifetime.hasEnded())
        delegate->object.fontImported(names[place]);
    dismissViewController();
}

void FontImportViewController::dismissViewController() {
    Q_EMIT dismissed();
}

} // namespace zelvo::ui
