// SPDX-License-Identifier: MIT
#pragma once

#include "actions/XAC.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace zelvo::ui {

/// In which order the history shows the records.
enum class SortMode {
    lastAdded, ///< the newest first, by the order of making
    playTime   ///< the latest of the performance first
};

/// The rows of the history: roles "title" and "detail". A detail is the row's running number, with
/// the newest on top, or the record's time.
class HistoryRows : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role { titleRole = Qt::UserRole, detailRole };

    using QAbstractListModel::QAbstractListModel;

    /// Where only rows have gone, the others stay where they are for the view; else all is new.
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
