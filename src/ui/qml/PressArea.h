// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace zelvo::ui {

/// Follows one finger, or the left mouse button, from press to release, even if it leaves the item.
/// A second finger on the item is accepted but ignored; fingers on other items are not affected.
class PressArea : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit PressArea(QQuickItem* parent = nullptr);

Q_SIGNALS:
    void pressed();
    void released();
    void canceled(); ///< another item or the system took the finger

protected:
    void touchEvent(QTouchEvent* event) override;
    void touchUngrabEvent() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;

private:
    static constexpr int kMouse = -1;

    void begin(int point);
    void cancel();

    std::optional<int> held; ///< id of the finger, or kMouse
};

} // namespace zelvo::ui
