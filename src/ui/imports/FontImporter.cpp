// SPDX-License-Identifier: MIT
#include "ui/imports/FontImporter.h"

#include "content/FontManager.h"
#include "platform/archive/Archive.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/RunLoop.h"
#include "platform/foundation/TemporaryFolder.h"
#include "ui/controls/Alerts.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace zelvo::ui {

namespace fs = std::filesystem;

namespace {

using foundation::Result;
using foundation::TemporaryFolder;

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

/// An archive, unpacked into a folder that goes away with this object.
struct Unpacked {
    TemporaryFolder folder;
    std::vector<fs::path> fonts;
    std::string failure; ///< why not all of it is there; empty: all is
};

/// The fonts in a folder and the folders in it, without what a file manager has hidden there.
std::vector<fs::path> fontsBelow(const fs::path& folder) {
    std::vector<fs::path> fonts;
    std::error_code error;
    for (fs::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code ignored;
        const bool isHidden = entry->path().filename().string().starts_with('.');
        if (!isHidden && entry->is_regular_file(ignored) && FontImporter::isFont(entry->path()))
            fonts.push_back(entry->path());
    }
    std::ranges::sort(fonts); // the order on the disk is any
    return fonts;
}

Result<Unpacked> unpack(const fs::path& file, const fs::path& temporary) {
    auto folder = TemporaryFolder::make(temporary);
    if (!folder)
        return tl::unexpected(folder.error());
    const auto done = archive::Archive::open(file).and_then(
        [&folder](const archive::Archive& opened) { return opened.unpackInto(folder->path()); });
    Unpacked unpacked{*std::move(folder), {}, {}};
    if (!done) {
        unpacked.failure = done.error().in(file.filename().string()).message;
        foundation::logLine("Extraction of ZIP failed with error: " + unpacked.failure);
    }
    unpacked.fonts = fontsBelow(unpacked.folder.path());
    return unpacked;
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

void askToInstall(const Services& services, const std::shared_ptr<const Unpacked>& unpacked) {
    const QString question =
        QCoreApplication::translate("FontImporter", "Do you want to install %1 fonts?");
    services.alerts.show(
        {.title = question.arg(unpacked->fonts.size()).toStdString(),
         .message = unpacked->failure,
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
    auto unpacked = unpack(file, services.fonts.temporaryFolder());
    if (!unpacked) {
        services.alerts.showAlert(unpacked.error().message, {});
        return false;
    }
    if (unpacked->fonts.empty()) {
        services.alerts.showAlert(
            QCoreApplication::translate("FontImporter", "No Fonts Found").toStdString(),
            unpacked->failure);
        return false;
    }
    const auto kept = std::make_shared<const Unpacked>(*std::move(unpacked));
    services.runLoop.post([services = services, kept] { askToInstall(services, kept); });
    return true;
}

} // namespace zelvo::ui
