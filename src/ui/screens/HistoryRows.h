// SPDX-License-Identifier: MIT
#pragma once

#include "actions/XAC.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace zelvo::ui {

/// The sort order of the history.
enum class SortMode {
    lastAdded, ///< newest first, by the order of recording
    playTime   ///< latest in the performance first
};

/// The rows of the history, with the roles "title" and "detail". The detail is a running number
/// (highest on top) or the record's time.
class HistoryRows : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role { titleRole = Qt::UserRole, detailRole };

    using QAbstractListModel::QAbstractListModel;

    /// If rows were only removed, the view keeps the others; otherwise all rows are new.
    void show(const std::vector<actions::XACPtr>& records, SortMode sortMode);

    [[nodiscard]] int count() const { return static_cast<int>(shown.size()); }

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

private:
    [[nodiscard]] QString detail(int row) const;
    void removeAllBut(const std::vector<actions::XACPtr>& records);

    std::vector<actions::XACPtr> shown;
    SortMode mode = SortMode::lastAdded;
};

} // namespace zelvo::ui
