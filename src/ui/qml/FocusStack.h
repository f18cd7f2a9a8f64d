// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace zelvo::ui {

/// Gives the keyboard focus to the top layer. Layers are the children that are focus scopes; the
/// top is the last visible one:
///
///     main screen < screen < hint < alert        all keys go to the alert
///     main screen < screen < (hint) < (alert)    the others are hidden: all keys go to the screen
///
/// Layers below the top are disabled: they get no keys and no presses. Each layer remembers its
/// focused item. If an item elsewhere takes the focus, the top gets it back; only popups of the
/// toolkit, which are above all layers, keep it.
///
/// A press outside of the focused item takes the focus from it, so that the layer itself gets the
/// keys. Stacks can be nested.
class FocusStack : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit FocusStack(QQuickItem* parent = nullptr);
    ~FocusStack() override;
    FocusStack(const FocusStack&) = delete;
    FocusStack& operator=(const FocusStack&) = delete;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    [[nodiscard]] std::vector<QQuickItem*> layers() const;
    /// Null if there is none.
    [[nodiscard]] QQuickItem* top() const;
    [[nodiscard]] bool answersFor(const QQuickItem* item) const;
    void watch(QQuickWindow* shown);
    void settle();
    void keepFocusOnTop();
    void leaveFocus(const QPointF& pressed);

    QMetaObject::Connection following; ///< the window's focus
    QPointer<QQuickWindow> watched;
};

} // namespace zelvo::ui
