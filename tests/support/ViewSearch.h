// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickItem>
#include <QVariant>

namespace zelvo::test {

/// The first visible item, this one or one inside it, that shows the object: it is the value of its
/// property. Loaders only pass a controller on, so they do not count. Null if there is none.
inline QQuickItem* viewOf(QQuickItem* item, const QObject* shown, const char* property) {
    const QVariant value = item->property(property);
    if (!item->inherits("QQuickLoader") && item->isVisible() && value.isValid() &&
        value.value<QObject*>() == shown)
        return item;
    for (QQuickItem* const child : item->childItems()) {
        if (QQuickItem* const found = viewOf(child, shown, property))
            return found;
    }
    return nullptr;
}

} // namespace zelvo::test
