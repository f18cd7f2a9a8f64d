// SPDX-License-Identifier: MIT
#include "ui/timeline/TimelineMarks.h"

#include <algorithm>
#include <utility>

namespace zelvo::ui {

using document::ActKind;

void TimelineMarks::show(std::vector<TimelineMark> marks) {
    const auto isSameAct = [](const TimelineMark& one, const TimelineMark& other) {
        return one.act.identifier == other.act.identifier;
    };
    if (!std::ranges::equal(marks, marks_, isSameAct)) {
        beginResetModel();
        marks_ = std::move(marks);
        endResetModel();
        return;
    }
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const bool isSame = marks[i] == marks_[i];
        marks_[i] = std::move(marks[i]); // also what is not seen
        if (isSame)
            continue;
        const auto row = index(static_cast<int>(i));
        Q_EMIT dataChanged(row, row);
    }
}

int TimelineMarks::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(marks_.size());
}

QVariant TimelineMarks::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const TimelineMark& mark = marks_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case identifierRole:
        return mark.act.identifier;
    case placeRole:
        return mark.place;
    case colorRole:
        return mark.color;
    case labelRole:
        return mark.label;
    case nameRole:
        return mark.name;
    case holdRole:
        return mark.act.kind == ActKind::hold;
    case gestureRole:
        return mark.act.tab.empty();
    case pickedRole:
        return mark.isPicked;
    default:
        return {};
    }
}

QHash<int, QByteArray> TimelineMarks::roleNames() const {
    return {
        {identifierRole, "identifier"},
        {placeRole, "place"},
        {colorRole, "color"},
        {labelRole, "label"},
        {nameRole, "name"},
        {holdRole, "isHold"},
        {gestureRole, "isGesture"},
        {pickedRole, "isPicked"},
    };
}

} // namespace zelvo::ui
