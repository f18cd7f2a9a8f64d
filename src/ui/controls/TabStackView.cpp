// SPDX-License-Identifier: MIT
#include "ui/controls/TabStackView.h"

namespace zelvo::ui {

TabStackView::TabStackView(QObject* parent)
    : TabStackView(Look{}, parent) {}

TabStackView::TabStackView(Look given, QObject* parent)
    : QObject(parent)
    , look(given) {}

TabStackView::~TabStackView() {
    leaveAll();
}

void TabStackView::addArrangedSubview(MyButton& button) {
    enter(button);
    Q_EMIT changed();
}

void TabStackView::setArrangedSubviews(const QList<MyButton*>& buttons) {
    leaveAll();
    for (MyButton* const button : buttons)
        enter(*button);
    Q_EMIT changed();
}

void TabStackView::highlight(const HighlightButton& touched) {
    for (MyButton* const button : std::as_const(row)) {
        if (auto* const highlighting = qobject_cast<HighlightButton*>(button))
            highlighting->setMySelected(highlighting == &touched);
    }
}

void TabStackView::select(qsizetype index) {
    const auto all = tabs();
    if (index >= 0 && index < all.size())
        all[index]->didTouch();
}

void TabStackView::enter(MyButton& button) {
    if (auto* const highlighting = qobject_cast<HighlightButton*>(&button))
        highlighting->setRow(this);
    row.append(&button);
    connect(&button, &QObject::destroyed, this, [this, gone = &button] {
        if (row.removeAll(gone) > 0)
            Q_EMIT changed();
    });
}

void TabStackView::leaveAll() {
    for (MyButton* const button : std::as_const(row)) {
        button->disconnect(this);
        if (auto* const highlighting = qobject_cast<HighlightButton*>(button))
            highlighting->setRow(nullptr);
    }
    row.clear();
}

QList<MySegmentedStackButton*> TabStackView::tabs() const {
    QList<MySegmentedStackButton*> found;
    for (MyButton* const button : row) {
        if (auto* const tab = qobject_cast<MySegmentedStackButton*>(button))
            found.append(tab);
    }
    return found;
}

} // namespace zelvo::ui
