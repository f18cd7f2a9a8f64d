// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QQuickItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// What a screen reader is told about an item, beside the toolkit's `Accessible`:
///
///     Accessible.name: qsTr("Undo")
///     Spoken.key: "Ctrl+Z"
///
/// The toolkit has no place for a key and for a part that can be opened, and calls disabled controls
/// enabled. For its own controls it overwrites role and check mark with those of the class; so they
/// are here, too.
class Spoken final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    QML_ATTACHED(zelvo::ui::Spoken)
    /// An Accessible.Role for a control, whose own one cannot be changed; 0: that of the item.
    Q_PROPERTY(int role MEMBER role NOTIFY changed)
    /// The key with the same action ("Ctrl+Z"); empty: none.
    Q_PROPERTY(QString key MEMBER key NOTIFY changed)
    /// Whether it stays pressed, and whether it is.
    Q_PROPERTY(bool isToggle MEMBER isToggle NOTIFY changed)
    Q_PROPERTY(bool isOn MEMBER isOn WRITE setOn NOTIFY changed)
    /// Whether it opens and closes a part of the window, and whether that is open.
    Q_PROPERTY(bool isExpandable MEMBER isExpandable NOTIFY changed)
    Q_PROPERTY(bool isExpanded MEMBER isExpanded WRITE setExpanded NOTIFY changed)

public:
    explicit Spoken(QObject* item);

    static Spoken* qmlAttachedProperties(QObject* item) { return new Spoken(item); }

    /// Lets all items with an `Accessible` be described in this way. Needs a loaded Qt Quick.
    static void install();

    int role = 0;
    QString key;
    bool isToggle = false;
    bool isOn = false;
    bool isExpandable = false;
    bool isExpanded = false;

    void setOn(bool isPressed);
    void setExpanded(bool isOpen);

Q_SIGNALS:
    void changed();
};

} // namespace zelvo::ui
