// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/HighlightButton.h"

#include <QColor>
#include <QList>
#include <QMarginsF>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// A row of buttons on a rounded background, with one of them selected. It does not own the
/// buttons, which must outlive their place in the row.
class TabStackView : public QObject, public HighlightRow {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QList<zelvo::ui::MyButton*> arrangedSubviews READ arranged NOTIFY changed)
    Q_PROPERTY(qreal leftInset READ leftInset NOTIFY changed)
    Q_PROPERTY(qreal rightInset READ rightInset NOTIFY changed)
    Q_PROPERTY(qreal spacing READ spacing NOTIFY changed)
    Q_PROPERTY(qreal cornerRadius READ cornerRadius NOTIFY changed)
    Q_PROPERTY(QColor strokeColor READ strokeColor NOTIFY changed)
    Q_PROPERTY(QColor bgColor READ bgColor NOTIFY changed)
    Q_PROPERTY(bool fillsEqually READ fillsEqually NOTIFY changed)

public:
    enum class Distribution {
        fill, ///< each button is as wide as its content
        fillEqually
    };

    struct Look {
        QMarginsF buttonEdgeInsets{8, 0, 8, 0}; ///< around a button's content
        qreal spacing = 1;
        qreal cornerRadius = 6;
        QColor strokeColor = Qt::transparent;
        QColor bgColor = Qt::transparent;
        Distribution distribution = Distribution::fill;
    };

    explicit TabStackView(QObject* parent = nullptr);
    explicit TabStackView(Look given, QObject* parent = nullptr);
    ~TabStackView() override;
    TabStackView(const TabStackView&) = delete;
    TabStackView& operator=(const TabStackView&) = delete;

    void addArrangedSubview(MyButton& button);
    /// Replaces the whole row.
    void setArrangedSubviews(const QList<MyButton*>& buttons);

    [[nodiscard]] const QList<MyButton*>& arranged() const { return row; }

    void highlight(const HighlightButton& touched) override;
    /// Selects the tab with this index among the row's MySegmentedStackButtons, without calling its
    /// target. Does nothing if there is none.
    void select(qsizetype index);

    /// The keyboard asks for the row: its lit button, or the first, gets the focus.
    Q_INVOKABLE void askForFocus() { Q_EMIT focusAsked(); }

    [[nodiscard]] qreal leftInset() const { return look.buttonEdgeInsets.left(); }

    [[nodiscard]] qreal rightInset() const { return look.buttonEdgeInsets.right(); }

    [[nodiscard]] qreal spacing() const { return look.spacing; }

    [[nodiscard]] qreal cornerRadius() const { return look.cornerRadius; }

    [[nodiscard]] QColor strokeColor() const { return look.strokeColor; }

    [[nodiscard]] QColor bgColor() const { return look.bgColor; }

    [[nodiscard]] bool fillsEqually() const {
        return look.distribution == Distribution::fillEqually;
    }

Q_SIGNALS:
    void changed();
    void focusAsked();

private:
    void enter(MyButton& button);
    void leaveAll();
    [[nodiscard]] QList<MySegmentedStackButton*> tabs() const;

    Look look;
    QList<MyButton*> row;
};

} // namespace zelvo::ui
