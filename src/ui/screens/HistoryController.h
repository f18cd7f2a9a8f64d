// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Services.h"
#include "ui/screens/HistoryRows.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <vector>

namespace zelvo::ui {

/// The screen that lists what the performance holds, a row for each act of the user, and takes rows
/// out of it. The list is a snapshot, made anew with each sort and delete: no run goes on while the
/// screen shows.
class HistoryController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString title READ title NOTIFY titleChanged)
    Q_PROPERTY(bool showsHint READ showsHint NOTIFY titleChanged)
    Q_PROPERTY(QString sortTitle READ sortTitle NOTIFY sortChanged)
    Q_PROPERTY(double cellHeight MEMBER cellHeight CONSTANT)
    Q_PROPERTY(zelvo::ui::HistoryRows* rows READ rows CONSTANT)

public:
    static constexpr const char* kSortKey = "SortedDefaultsKey";
    static constexpr const char* kHintKey = "SwipeRowToDelete";

    explicit HistoryController(const Services& given);

    double cellHeight = 48;                               ///< device-independent pixels
    std::vector<actions::XACPtr> undoableRecordedActions; ///< in the order shown

    [[nodiscard]] QString title() const { return title_; }

    /// The title is the hint, and stands out.
    [[nodiscard]] bool showsHint() const { return showsHint_; }

    [[nodiscard]] QString sortTitle() const;

    [[nodiscard]] HistoryRows* rows() { return &tableView; }

    /// The view is on screen: the hint shows, on the first two times.
    Q_INVOKABLE void viewDidAppear();
    /// Sorts the other way.
    Q_INVOKABLE void sortFunction();
    /// The act of that row leaves the performance for good, and so does all that could be undone.
    Q_INVOKABLE void deleteRow(int row);
    Q_INVOKABLE void dismissViewController();

Q_SIGNALS:
    void titleChanged();
    void sortChanged();
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
    std::shared_ptr<const bool> alive =
        std::make_shared<const bool>(true); ///< queued calls may outlive this
};

} // namespace zelvo::ui
