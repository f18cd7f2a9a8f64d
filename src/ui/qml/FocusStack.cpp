// SPDX-License-Identifier: MIT
#include "ui/qml/FocusStack.h"

#include <QMouseEvent>
#include <QQuickWindow>

#include <algorithm>
#include <functional>

namespace zelvo::ui {

namespace {

bool holds(const QQuickItem* outer, const QQuickItem* item) {
    return outer == item || outer->isAncestorOf(item);
}

} // namespace

FocusStack::FocusStack(QQuickItem* parent)
    : QQuickItem(parent) {
    setFlag(ItemIsFocusScope);
}

FocusStack::~FocusStack() {
    // The item's own destructor hides the layers and moves the focus. This object is gone by then.
    disconnect(following);
    for (QQuickItem* const child : childItems())
        child->disconnect(this);
}

std::vector<QQuickItem*> FocusStack::layers() const {
    std::vector<QQuickItem*> scopes;
    for (QQuickItem* const child : childItems()) {
        if (child->isFocusScope())
            scopes.push_back(child);
    }
    return scopes;
}

QQuickItem* FocusStack::top() const {
    const auto all = layers();
    const auto found = std::find_if(all.rbegin(), all.rend(), std::mem_fn(&QQuickItem::isVisible));
    return found == all.rend() ? nullptr : *found;
}

void FocusStack::componentComplete() {
    QQuickItem::componentComplete();
    settle();
}

void FocusStack::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemChildAddedChange)
        connect(data.item, &QQuickItem::visibleChanged, this, &FocusStack::settle);
    else if (change == ItemChildRemovedChange)
        data.item->disconnect(this);
    else if (change == ItemSceneChange)
        watch(data.window);
    QQuickItem::itemChange(change, data);
}

void FocusStack::watch(QQuickWindow* shown) {
    disconnect(following);
    if (watched != nullptr)
        watched->removeEventFilter(this);
    watched = shown;
    if (shown == nullptr)
        return;
    following =
        connect(shown, &QQuickWindow::activeFocusItemChanged, this, &FocusStack::keepFocusOnTop);
    shown->installEventFilter(this);
}

void FocusStack::settle() {
    QQuickItem* const upper = top();
    if (!isComponentComplete() || upper == nullptr)
        return;
    for (QQuickItem* const layer : layers())
        layer->setEnabled(layer == upper);
    keepFocusOnTop();
}

bool FocusStack::answersFor(const QQuickItem* item) const {
    const bool isOutermost = parentItem() == watched->contentItem();
    return holds(this, item) || (isOutermost && item == watched->contentItem());
}

void FocusStack::keepFocusOnTop() {
    const QQuickItem* const focus = watched == nullptr ? nullptr : watched->activeFocusItem();
    QQuickItem* const upper = top();
    if (focus == nullptr || upper == nullptr || holds(upper, focus) || !answersFor(focus))
        return;
    // with the reason of a key, so that the focus is visible
    upper->forceActiveFocus(Qt::TabFocusReason);
}

bool FocusStack::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::TouchBegin)
        leaveFocus(static_cast<QPointerEvent*>(event)->point(0).position());
    return false;
}

void FocusStack::leaveFocus(const QPointF& pressed) {
    QQuickItem* const focus = watched->activeFocusItem();
    const QQuickItem* const upper = top();
    if (focus == nullptr || upper == nullptr || focus == upper || !upper->isAncestorOf(focus))
        return;
    if (!focus->contains(focus->mapFromScene(pressed)))
        focus->setFocus(false, Qt::MouseFocusReason);
}

} // namespace zelvo::ui
