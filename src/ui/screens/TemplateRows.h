// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <filesystem>

namespace zelvo::ui {

/// What a new movie can begin with: an empty stage, then the templates. The roles are "title" and
/// "preview", the URL of the preview's frames; it is empty for the empty stage, and where no
/// previews could be made.
class TemplateRows : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(int frameWidth READ frameWidth CONSTANT)
    Q_PROPERTY(int frameHeight READ frameHeight CONSTANT)
    Q_PROPERTY(int frameCount READ frameCount CONSTANT)
    Q_PROPERTY(int frameRate READ frameRate CONSTANT)

public:
    enum Role { titleRole = Qt::UserRole, previewRole };

    using QAbstractListModel::QAbstractListModel;

    /// The performance of a row; an empty path for the empty stage, and for a template whose file is
    /// missing.
    [[nodiscard]] static std::filesystem::path fileOf(int row);

    // The frames of a preview, see document::TemplatePreview.
    [[nodiscard]] static int frameWidth();
    [[nodiscard]] static int frameHeight();
    [[nodiscard]] static int frameCount();
    [[nodiscard]] static int frameRate();

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};

} // namespace zelvo::ui
