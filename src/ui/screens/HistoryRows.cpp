// SPDX-License-Identifier: MIT
#include "ui/screens/HistoryRows.h"

#include "shared/FormatTime.h"

#include <algorithm>

namespace zelvo::ui {

namespace {

/// Whether `part` is `whole` without some of its entries.
bool isWhatStaysOf(
    const std::vector<actions::XACPtr>& whole, const std::vector<actions::XACPtr>& part) {
    auto from = whole.begin();
    return std::ranges::all_of(part, [&](const actions::XACPtr& record) {
        from = std::find(from, whole.end(), record);
        return from != whole.end() && from++ != whole.end();
    });
}

} // namespace

void HistoryRows::show(const std::vector<actions::XACPtr>& records, SortMode sortMode) {
    if (sortMode == mode && isWhatStaysOf(shown, records)) {
        removeAllBut(records);
    } else {
        beginResetModel();
        shown = records;
        mode = sortMode;
        endResetModel();
    }
    Q_EMIT countChanged();
}

void HistoryRows::removeAllBut(const std::vector<actions::XACPtr>& records) {
    for (int row = count() - 1; row >= 0; --row) {
        const auto place = shown.begin() + row;
        if (std::ranges::find(records, *place) != records.end())
            continue;
        beginRemoveRows({}, row, row);
        shown.erase(place);
        endRemoveRows();
    }
    if (!shown.empty())
        Q_EMIT dataChanged(index(0), index(count() - 1), {detailRole}); // the numbers have changed
}

int HistoryRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant HistoryRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= count())
        return {};
    if (role == titleRole)
        return QString::fromStdString(shown[static_cast<std::size_t>(index.row())]->title);
    return role == detailRole ? detail(index.row()) : QVariant();
}

QString HistoryRows::detail(int row) const {
    if (mode == SortMode::lastAdded)
        return QString::number(count() - row);
    return QString::fromStdString(formatTime(shown[static_cast<std::size_t>(row)]->time));
}

QHash<int, QByteArray> HistoryRows::roleNames() const {
    return {{titleRole, "title"}, {detailRole, "detail"}};
}

} // namespace zelvo::ui
