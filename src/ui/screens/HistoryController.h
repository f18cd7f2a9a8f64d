// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "ui/controls/Services.h"
#include "ui/screens/HistoryRows.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace zelvo::ui {

/// The screen that lists the performance, with a row for each user action, and deletes rows. The
/// list is a snapshot, made anew after sorting and deleting; no run is possible while the screen is
/// shown.
class HistoryController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString title READ title NOTIFY titleChanged)
    Q_PROPERTY(bool showsHint READ showsHint NOTIFY titleChanged)
    Q_PROPERTY(QString sortTitle READ sortTitle NOTIFY sortChanged)
    Q_PROPERTY(double cellHeight MEMBER cellHeight CONSTANT)
    Q_PROPERTY(bool canPutBack READ canPutBack NOTIFY rowsChanged)
    Q_PROPERTY(zelvo::ui::HistoryRows* rows READ rows CONSTANT)

public:
    static constexpr const char* kSortKey = "SortedDefaultsKey";
    static constexpr const char* kHintKey = "SwipeRowToDelete";

    explicit HistoryController(const Services& given);

    double cellHeight = 48;                               ///< device-independent pixels
    std::vector<actions::XACPtr> undoableRecordedActions; ///< in the displayed order

    [[nodiscard]] QString title() const { return title_; }

    /// The title shows the hint, highlighted.
    [[nodiscard]] bool showsHint() const { return showsHint_; }

    [[nodiscard]] QString sortTitle() const;

    [[nodiscard]] HistoryRows* rows() { return &tableView; }

    /// Called when the view is on screen; shows the hint for the first two times.
    Q_INVOKABLE void viewDidAppear();
    /// Switches the sort order.
    Q_INVOKABLE void sortFunction();
    /// Deletes that user action from the performance. This is no step of undo, and it clears the undo
    /// list; but the row can be put back.
    Q_INVOKABLE void deleteRow(int row);
    /// Puts back what was deleted last. Does nothing if there is nothing.
    Q_INVOKABLE void putBack();
    [[nodiscard]] bool canPutBack() const;
    Q_INVOKABLE void dismissViewController();

Q_SIGNALS:
    void titleChanged();
    void sortChanged();
    void rowsChanged();
    void dismissed();

private:
    [[nodiscard]] SortMode sortMode() const;
    void fill();
    void setTitle(const QString& text, bool isHint);
    void titleAfter(double delay, const QString& text, bool isHint);

    Services services;
    HistoryRows tableView;
    QString title_;
    bool showsHint_ = false;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
