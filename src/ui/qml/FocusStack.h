// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace zelvo::ui {

/// Gives the keys to what lies on top. Its layers are those of its children that are focus scopes;
/// the last of them that is visible is the top:
///
///     main screen < screen < hint < alert        all keys go to the alert
///     main screen < screen < (hint) < (alert)    the others are hidden: all keys go to the screen
///
/// Layers below the top are disabled and take neither keys nor presses. Each remembers which of its
/// items had the focus. Whatever asks for the focus elsewhere, the top gets it back; only popups of
/// the toolkit, which lie over all layers, keep theirs.
///
/// A press beside the item that has the focus takes the focus away from it: the layer itself then
/// has the keys. Stacks may stand within each other.
class FocusStack : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit FocusStack(QQuickItem* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    [[nodiscard]] std::vector<QQuickItem*> layers() const;
    /// Null: there is none.
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
