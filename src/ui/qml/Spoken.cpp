// SPDX-License-Identifier: MIT
#include "ui/qml/Spoken.h"

#include <private/qaccessiblequickitem_p.h>
#include <private/qquickitem_p.h>

#include <QAccessible>
#include <QtQml/qqml.h>

#include <utility>

namespace zelvo::ui {

namespace {

void tellState(QObject* item, QAccessible::State changed) {
    QAccessibleStateChangeEvent event(item, changed);
    QAccessible::updateAccessibility(&event);
}

/// The toolkit's description of an item, completed.
class SpokenItem final : public QAccessibleQuickItem, public QAccessibleEditableTextInterface {
public:
    explicit SpokenItem(QQuickItem* shown)
        : QAccessibleQuickItem(shown) {
        QObject::connect(shown, &QQuickItem::enabledChanged, shown, [shown] {
            QAccessible::State changed;
            changed.disabled = 1;
            tellState(shown, changed);
        });
    }

    [[nodiscard]] QAccessible::Role role() const override {
        const Spoken* const more = spoken();
        return more != nullptr && more->role != 0 ? static_cast<QAccessible::Role>(more->role)
                                                  : QAccessibleQuickItem::role();
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleQuickItem::state();
        if (!item()->isEnabled()) {
            state.disabled = 1;
            state.focusable = 0;
        }
        if (const Spoken* const more = spoken())
            add(*more, state);
        return state;
    }

    /// The toolkit names an action twice that both the control and its `Accessible` have.
    [[nodiscard]] QStringList actionNames() const override {
        QStringList names = QAccessibleQuickItem::actionNames();
        names.removeDuplicates();
        if (!item()->isEnabled())
            names.clear();
        return names;
    }

    [[nodiscard]] QStringList keyBindingsForAction(const QString& action) const override {
        const Spoken* const more = spoken();
        return more == nullptr || more->key.isEmpty() || action == setFocusAction()
                   ? QStringList()
                   : QStringList(more->key);
    }

    void deleteText(int startOffset, int endOffset) override {
        QMetaObject::invokeMethod(
            object(), "remove", Q_ARG(int, startOffset), Q_ARG(int, endOffset));
        tellEdited();
    }

    void insertText(int offset, const QString& text) override {
        QMetaObject::invokeMethod(object(), "insert", Q_ARG(int, offset), Q_ARG(QString, text));
        tellEdited();
    }

    void replaceText(int startOffset, int endOffset, const QString& text) override {
        QMetaObject::invokeMethod(
            object(), "remove", Q_ARG(int, startOffset), Q_ARG(int, endOffset));
        insertText(startOffset, text);
    }

protected:
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::EditableTextInterface)
            return role() == QAccessible::EditableText
                       ? static_cast<QAccessibleEditableTextInterface*>(this)
                       : nullptr;
        if (type == QAccessible::ValueInterface && role() == QAccessible::ProgressBar)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleQuickItem::interface_cast(type);
    }

private:
    /// As if typed: our fields take only what the user has edited.
    void tellEdited() const { QMetaObject::invokeMethod(object(), "textEdited"); }

    static void add(const Spoken& more, QAccessible::State& state) {
        state.checkable = more.isToggle ? 1 : 0;
        state.checked = more.isToggle && more.isOn ? 1 : 0;
        state.expandable = more.isExpandable ? 1 : 0;
        state.expanded = more.isExpandable && more.isExpanded ? 1 : 0;
        state.collapsed = more.isExpandable && !more.isExpanded ? 1 : 0;
    }

    /// Null if nothing was set.
    [[nodiscard]] const Spoken* spoken() const {
        return qobject_cast<Spoken*>(qmlAttachedPropertiesObject<Spoken>(object(), false));
    }
};

QAccessibleInterface* describe(const QString& className, QObject* object) {
    if (className != QLatin1String("QQuickItem"))
        return nullptr;
    auto* const item = static_cast<QQuickItem*>(object);
    return QQuickItemPrivate::get(item)->isAccessible ? new SpokenItem(item) : nullptr;
}

} // namespace

Spoken::Spoken(QObject* item)
    : QObject(item) {}

void Spoken::install() {
    QAccessible::installFactory(&describe);
}

void Spoken::setOn(bool isPressed) {
    if (std::exchange(isOn, isPressed) == isPressed)
        return;
    QAccessible::State changed;
    changed.checked = 1;
    tellState(parent(), changed);
    Q_EMIT this->changed();
}

void Spoken::setExpanded(bool isOpen) {
    if (std::exchange(isExpanded, isOpen) == isOpen)
        return;
    QAccessible::State changed;
    changed.expanded = 1;
    changed.collapsed = 1;
    tellState(parent(), changed);
    Q_EMIT this->changed();
}

} // namespace zelvo::ui
