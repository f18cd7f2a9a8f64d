// SPDX-License-Identifier: MIT
#pragma once

#include "document/ActEdits.h"
#include "ui/timeline/TimelineLayout.h"

#include <QAbstractListModel>
#include <QColor>
#include <QRectF>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace zelvo::ui {

/// An act on the strip.
struct TimelineMark {
    document::Act act;
    TimeSpan span; ///< that it stands for
    QRectF place;  ///< on the strip
    QColor color;
    QString title;   ///< for example "Left In"
    QString label;   ///< the title, or a shorter one
    QString details; ///< nodes, time and speed, for the tooltip
    QString name;    ///< for screen readers
    bool isPicked = false;

    /// Whether it looks the same.
    friend bool operator==(const TimelineMark& one, const TimelineMark& other) {
        return one.act.kind == other.act.kind && one.place == other.place &&
               one.color == other.color && one.label == other.label && one.name == other.name &&
               one.details == other.details && one.isPicked == other.isPicked;
    }
};

/// The marks of a time line for its view, by the time at which they begin.
class TimelineMarks : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")

public:
    enum Role {
        identifierRole = Qt::UserRole,
        placeRole,
        colorRole,
        labelRole,
        nameRole,
        holdRole,
        gestureRole,
        pickedRole
    };

    using QAbstractListModel::QAbstractListModel;

    /// If the marks are the same acts as before, their views stay.
    void show(std::vector<TimelineMark> marks);

    [[nodiscard]] const std::vector<TimelineMark>& marks() const { return marks_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    std::vector<TimelineMark> marks_;
};

} // namespace zelvo::ui
