// SPDX-License-Identifier: MIT
#include "ui/screens/TemplateRows.h"

#include "document/Templates.h"
#include "platform/foundation/Folders.h"

#include <QCoreApplication>
#include <QUrl>

#include <array>

namespace zelvo::ui {

namespace {

using document::kTemplates;
using document::TemplatePreview;

constexpr int kEmptyStage = 0; ///< its row
constexpr const char* kContext = "zelvo::ui::TemplateRows";

/// In the order of kTemplates.
constexpr auto kTitles = std::to_array<const char*>({
    QT_TRANSLATE_NOOP("zelvo::ui::TemplateRows", "Night"),
    QT_TRANSLATE_NOOP("zelvo::ui::TemplateRows", "Sport"),
    QT_TRANSLATE_NOOP("zelvo::ui::TemplateRows", "Gaming"),
    QT_TRANSLATE_NOOP("zelvo::ui::TemplateRows", "Wedding"),
    QT_TRANSLATE_NOOP("zelvo::ui::TemplateRows", "News"),
    QT_TRANSLATE_NOOP("zelvo::ui::TemplateRows", "Kids"),
    QT_TRANSLATE_NOOP("zelvo::ui::TemplateRows", "Horror"),
    QT_TRANSLATE_NOOP("zelvo::ui::TemplateRows", "Space"),
    QT_TRANSLATE_NOOP("zelvo::ui::TemplateRows", "Retro"),
    QT_TRANSLATE_NOOP("zelvo::ui::TemplateRows", "Minimal"),
    QT_TRANSLATE_NOOP("zelvo::ui::TemplateRows", "Luxury"),
    QT_TRANSLATE_NOOP("zelvo::ui::TemplateRows", "Countdown"),
});
static_assert(kTitles.size() == kTemplates.size());

[[nodiscard]] std::size_t templateAt(int row) {
    return static_cast<std::size_t>(row) - 1;
}

[[nodiscard]] QString titleOf(int row) {
    const char* const title = row == kEmptyStage
                                  ? QT_TRANSLATE_NOOP("zelvo::ui::TemplateRows", "Empty stage")
                                  : kTitles.at(templateAt(row));
    return QCoreApplication::translate(kContext, title);
}

[[nodiscard]] QString previewOf(int row) {
    if (row == kEmptyStage)
        return {};
    const auto file =
        foundation::mainBundle().path(document::previewName(kTemplates.at(templateAt(row))));
    if (file.empty())
        return {};
    return QUrl::fromLocalFile(QString::fromStdString(file.string())).toString(QUrl::FullyEncoded);
}

} // namespace

std::filesystem::path TemplateRows::fileOf(int row) {
    if (row == kEmptyStage)
        return {};
    return document::templateFile(kTemplates.at(templateAt(row))).value_or(std::filesystem::path());
}

int TemplateRows::frameWidth() {
    return TemplatePreview::kWidth;
}

int TemplateRows::frameHeight() {
    return TemplatePreview::kHeight;
}

int TemplateRows::frameCount() {
    return TemplatePreview::kFrames;
}

int TemplateRows::frameRate() {
    return TemplatePreview::kFramesPerSecond;
}

int TemplateRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(kTemplates.size()) + 1;
}

QVariant TemplateRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount({}))
        return {};
    if (role == titleRole)
        return titleOf(index.row());
    return role == previewRole ? previewOf(index.row()) : QVariant();
}

QHash<int, QByteArray> TemplateRows::roleNames() const {
    return {{titleRole, "title"}, {previewRole, "preview"}};
}

} // namespace zelvo::ui
