// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/MainViewController.h"

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// The area on which files and pictures can be dropped.
class DropTarget : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(zelvo::ui::MainViewController* main MEMBER main REQUIRED)
    /// What a drop would do; empty: nothing is being dragged over it.
    Q_PROPERTY(QString promise READ promise NOTIFY offerChanged)
    Q_PROPERTY(bool isWelcome READ isWelcome NOTIFY offerChanged)

public:
    explicit DropTarget(QQuickItem* parent = nullptr);

    [[nodiscard]] QString promise() const;

    /// Whether what is being dragged over it can be opened.
    [[nodiscard]] bool isWelcome() const {
        return offer != Offer::none && offer != Offer::link && offer != Offer::unknown;
    }

Q_SIGNALS:
    void offerChanged();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void setOffer(Offer kind);

    MainViewController* main = nullptr;
    Offer offer = Offer::none;
};

} // namespace zelvo::ui
