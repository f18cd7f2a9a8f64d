// SPDX-License-Identifier: MIT
#include "ui/screens/ExportSettingsController.h"

#include "export/PictureSizes.h"
#include "export/VideoLibrary.h"
#include "model/Model.h"
#include "node/DefaultSCNNode.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/NewFile.h"
#include "platform/foundation/UserDefaults.h"

#include <algorithm>
#include <array>
#include <system_error>

namespace zelvo::ui {

namespace {

/// Moments of a frame.
constexpr auto kMotionBlurs = std::to_array<int>({1, 4, 8, 16});

/// The index of the row with this value; the first one if there is none.
template <class Rows, class Value, class Member>
[[nodiscard]] int indexOf(const Rows& rows, const Value& value, Member member) {
    const auto found = std::ranges::find(rows, value, member);
    return found == rows.end() ? 0 : static_cast<int>(found - rows.begin());
}

template <class Rows> [[nodiscard]] bool hasRow(const Rows& rows, int index) {
    return index >= 0 && index < static_cast<int>(rows.size());
}

} // namespace

ExportSettingsController::ExportSettingsController(const Services& given)
    : services(given)
    , settings(movie::ExportSettings::from(given.defaults))
    , hasOwnSize_(
          std::ranges::find(movie::kNamedSizes, settings.size, &movie::NamedSize::size) ==
          movie::kNamedSizes.end())
    , ownSize_(QString::fromStdString(movie::sizeText(settings.size)))
    , typedName(QString::fromStdString(settings.place.name)) {
    std::error_code error;
    if (!std::filesystem::is_directory(settings.place.folder, error))
        settings.place.folder.clear(); // a disk that is not there today
}

QStringList ExportSettingsController::formats() {
    return {
        QStringLiteral("QuickTime"),
        QStringLiteral("MP4"),
        QStringLiteral("WebM"),
        tr("PNG Pictures")};
}

int ExportSettingsController::format() const {
    return indexOf(movie::kExportFormats, settings.format, &movie::ExportFormatInfo::format);
}

void ExportSettingsController::setFormat(int index) {
    if (!hasRow(movie::kExportFormats, index) || index == format())
        return;
    settings.format = movie::kExportFormats.at(static_cast<std::size_t>(index)).format;
    Q_EMIT changed();
}

QStringList ExportSettingsController::sizes() {
    return {
        QStringLiteral("720p"),
        QStringLiteral("1080p"),
        QStringLiteral("1440p"),
        QStringLiteral("4K"),
        tr("Square"),
        tr("Upright"),
        tr("Other")};
}

int ExportSettingsController::size() const {
    if (hasOwnSize_)
        return static_cast<int>(movie::kNamedSizes.size());
    return indexOf(movie::kNamedSizes, settings.size, &movie::NamedSize::size);
}

void ExportSettingsController::setSize(int index) {
    if (index < 0 || index > static_cast<int>(movie::kNamedSizes.size()) || index == size())
        return;
    hasOwnSize_ = !hasRow(movie::kNamedSizes, index);
    if (!hasOwnSize_) {
        settings.size = movie::kNamedSizes.at(static_cast<std::size_t>(index)).size;
        ownSize_ = QString::fromStdString(movie::sizeText(settings.size));
    }
    Q_EMIT changed();
}

void ExportSettingsController::setOwnSize(const QString& text) {
    if (text == ownSize_)
        return;
    ownSize_ = text;
    QString plain = text.simplified().toLower().remove(QLatin1Char(' '));
    plain.replace(QChar(0x00D7), QLatin1Char('x')); // the sign of multiplication
    if (const auto read = movie::sizeFrom(plain.toStdString()))
        settings.size = *read;
    else
        settings.size = {0, 0};
    Q_EMIT changed();
}

QStringList ExportSettingsController::qualities() {
    return {tr("Draft"), tr("Standard"), tr("Finest")};
}

int ExportSettingsController::quality() const {
    return indexOf(render::kQualities, settings.quality, &render::NamedQuality::name);
}

void ExportSettingsController::setQuality(int index) {
    if (!hasRow(render::kQualities, index) || index == quality())
        return;
    settings.quality = render::kQualities.at(static_cast<std::size_t>(index)).name;
    Q_EMIT changed();
}

QStringList ExportSettingsController::motionBlurs() {
    QStringList texts{tr("Off")};
    for (std::size_t i = 1; i < kMotionBlurs.size(); ++i)
        texts.append(tr("%1 moments").arg(kMotionBlurs.at(i)));
    return texts;
}

int ExportSettingsController::motionBlur() const {
    // A number between two choices, as from a file that was changed by hand, is the lower one.
    const auto* const above = std::ranges::upper_bound(kMotionBlurs, settings.moments);
    return static_cast<int>(above - kMotionBlurs.begin()) - 1;
}

void ExportSettingsController::setMotionBlur(int index) {
    if (!hasRow(kMotionBlurs, index) || index == motionBlur())
        return;
    settings.moments = kMotionBlurs.at(static_cast<std::size_t>(index));
    Q_EMIT changed();
}

QStringList ExportSettingsController::backgrounds() {
    return {tr("Stage"), tr("Transparent")};
}

void ExportSettingsController::setBackground(int index) {
    if (!canHaveAlpha() || index == background())
        return;
    settings.wantsAlpha = index == 1;
    Q_EMIT changed();
}

bool ExportSettingsController::canHaveAlpha() const {
    return movie::infoOf(settings.format).canHaveAlpha;
}

QString ExportSettingsController::name() const {
    return typedName;
}

void ExportSettingsController::setName(const QString& text) {
    if (text == typedName)
        return;
    typedName = text;
    settings.place.name = text.trimmed().toStdString();
    Q_EMIT changed();
}

movie::LibraryPlace ExportSettingsController::place() const {
    auto place = settings.place;
    if (place.folder.empty())
        place.folder = services.folders.videos;
    return place;
}

QString ExportSettingsController::folder() const {
    return QString::fromStdString(place().folder.string());
}

QUrl ExportSettingsController::folderUrl() const {
    return QUrl::fromLocalFile(folder());
}

void ExportSettingsController::setFolder(const QUrl& chosen) {
    const std::filesystem::path path = chosen.toLocalFile().toStdString();
    if (path.empty() || path == place().folder)
        return;
    settings.place.folder = path;
    Q_EMIT changed();
}

QString ExportSettingsController::fault() const {
    if (movie::checkFileName(settings.place.name))
        return settings.size.width > 0
                   ? QString()
                   : tr("The size must be like 1920x1080, both sides even and from %1 to %2.")
                         .arg(movie::kMinSide)
                         .arg(movie::kMaxSide);
    return settings.place.name.empty()
               ? tr("Enter a name.")
               : tr("This name cannot be used: it must be short, without slashes, and not begin "
                    "with a dot.");
}

QString ExportSettingsController::remark() const {
    if (QString why = fault(); !why.isEmpty())
        return why;
    const movie::VideoLibrary library(services.folders.videos);
    const auto free = library.freePlace(place(), settings.ending());
    return tr("Will be saved as %1").arg(QString::fromStdString(free.filename().string()));
}

void ExportSettingsController::start() {
    if (!canStart())
        return;
    settings.keep(services.defaults);
    auto& options = services.model.movieWriter().options;
    options = settings.options(node::kStageMask);
    options.copyPlace = place();
    Q_EMIT accepted();
}

void ExportSettingsController::cancel() {
    Q_EMIT dismissed();
}

} // namespace zelvo::ui
