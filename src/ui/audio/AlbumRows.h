// SPDX-License-Identifier: MIT
#pragma once

#include "platform/music/AlbumList.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace zelvo::ui {

/// The albums for a list view. It shares the list with its owner, and makes texts only for the rows in
/// sight.
class AlbumRows : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")

public:
    using List = std::shared_ptr<const music::AlbumList>;

    explicit AlbumRows(QObject* parent = nullptr);

    /// Tells the view which rows are new and which are gone, so that it stays where it is.
    void setList(List given);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    enum Role { titleRole = Qt::UserRole, artistRole, sectionRole, coverRole };

    struct Run;

    [[nodiscard]] static std::vector<Run>
    runsBetween(const music::AlbumList& before, const music::AlbumList& after);

    List list = std::make_shared<music::AlbumList>();
    int count = 0; ///< while rows come and go, not yet that of the list
};

} // namespace zelvo::ui
