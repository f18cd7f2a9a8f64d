// SPDX-License-Identifier: MIT
#include "ui/imports/FontImporter.h"

#include "content/FontManager.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/RunLoop.h"
#include "ui/controls/Alerts.h"
#include "ui/imports/Unpacked.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace zelvo::ui {

namespace fs = std::filesystem;

namespace {

using foundation::Result;

constexpr auto kFontExtensions =
    std::to_array<std::string_view>({"ttf", "otf", "ttc", "otc", "woff", "woff2"});
constexpr auto kArchiveExtensions = std::to_array<std::string_view>({"zip"});

template <std::size_t Count>
bool hasExtension(const fs::path& file, const std::array<std::string_view, Count>& extensions) {
    const QString extension = QString::fromStdString(file.extension().string());
    return std::ranges::any_of(extensions, [&extension](std::string_view one) {
        const auto size = static_cast<qsizetype>(one.size());
        return extension.mid(1).compare(QLatin1String(one.data(), size), Qt::CaseInsensitive) == 0;
    });
}

/// The fonts of an archive.
struct UnpackedFonts {
    Unpacked archive; ///< holds their folder
    std::vector<fs::path> fonts;
};

Result<UnpackedFonts> unpackFonts(const fs::path& file, const fs::path& temporary) {
    auto unpacked = unpack(file, temporary);
    if (!unpacked)
        return tl::unexpected(unpacked.error());
    if (!unpacked->failure.empty())
        foundation::logLine("Extraction of ZIP failed with error: " + unpacked->failure);
    UnpackedFonts result{*std::move(unpacked), {}};
    std::ranges::copy_if(
        result.archive.files, std::back_inserter(result.fonts), &FontImporter::isFont);
    return result;
}

/// Says that fonts of these names were there before; empty if there are none.
std::string alreadyThere(const QStringList& names) {
    constexpr qsizetype kShown = 8;
    if (names.empty())
        return {};
    const QString shown = names.mid(0, kShown).join(", ") + (names.size() > kShown ? ", …" : "");
    return QCoreApplication::translate("FontImporter", "Already there: %1")
        .arg(shown)
        .toStdString();
}

/// Installs fonts one by one; an error is shown, and the next one follows.
void installAll(const Services& services, const std::vector<fs::path>& fonts) {
    int count = 0;
    QStringList namesTaken;
    for (const fs::path& font : fonts) {
        const auto installed = services.fonts.install(font);
        if (!installed) {
            services.alerts.showAlert(installed.error().message, {});
            continue;
        }
        ++count;
        if (!installed->nameTaken.empty())
            namesTaken.append(QString::fromStdString(installed->nameTaken));
    }
    if (count == 0)
        return;
    services.alerts.showAlert(
        QCoreApplication::translate("FontImporter", "%1 Font(s) installed")
            .arg(count)
            .toStdString(),
        alreadyThere(namesTaken));
    services.fonts.fontsInstalled.fire();
}

void askToInstall(const Services& services, const std::shared_ptr<const UnpackedFonts>& unpacked) {
    const QString question =
        QCoreApplication::translate("FontImporter", "Do you want to install %1 fonts?");
    services.alerts.show(
        {.title = question.arg(unpacked->fonts.size()).toStdString(),
         .message = unpacked->archive.failure,
         .actions = {
             {.title = QCoreApplication::translate("FontImporter", "Ok").toStdString(),
              .handler = [services, unpacked] { installAll(services, unpacked->fonts); }},
             {.title = QCoreApplication::translate("FontImporter", "Cancel").toStdString(),
              .role = AlertRole::cancel}}});
}

} // namespace

FontImporter::FontImporter(const Services& given)
    : services(given) {}

bool FontImporter::isFont(const fs::path& file) {
    return hasExtension(file, kFontExtensions);
}

bool FontImporter::isArchive(const fs::path& file) {
    return hasExtension(file, kArchiveExtensions);
}

bool FontImporter::importFile(const fs::path& file) {
    if (isArchive(file))
        return importArchive(file);
    if (isFont(file))
        return importFont(file);
    services.alerts.showAlert(
        QCoreApplication::translate("FontImporter", "Unsupported file.").toStdString(), {});
    return false;
}

bool FontImporter::importFont(const fs::path& file) {
    const auto installed = services.fonts.install(file);
    if (!installed) {
        services.alerts.showAlert(installed.error().message, {});
        return false;
    }
    if (!installed->nameTaken.empty()) {
        const QString name = QString::fromStdString(installed->nameTaken);
        services.alerts.showAlert(
            QCoreApplication::translate("FontImporter", "There is a font named “%1” already.")
                .arg(name)
                .toStdString(),
            {});
    }
    return true;
}

bool FontImporter::importArchive(const fs::path& file) {
    auto unpacked = unpackFonts(file, services.fonts.temporaryFolder());
    if (!unpacked) {
        services.alerts.showAlert(unpacked.error().message, {});
        return false;
    }
    if (unpacked->fonts.empty()) {
        services.alerts.showAlert(
            QCoreApplication::translate("FontImporter", "No Fonts Found").toStdString(),
            unpacked->archive.failure);
        return false;
    }
    const auto kept = std::make_shared<const UnpackedFonts>(*std::move(unpacked));
    services.runLoop.post([services = services, kept] { askToInstall(services, kept); });
    return true;
}

} // namespace zelvo::ui
