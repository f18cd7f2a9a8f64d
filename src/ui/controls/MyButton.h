// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/InterfaceColors.h"

#include <QColor>
#include <QList>
#include <QObject>
#include <QSizeF>
#include <QString>
#include <QtQml/qqml.h>

#include <functional>

namespace zelvo::ui {

/// What a button shows, and how it is described.
struct ButtonFace {
    QString image{}; ///< name of an icon; empty: none
    QString title{}; ///< empty: none
    QString name{};  ///< for tooltip and screen readers; empty: the title
    /// The key with the same action, as shown in the tooltip ("Ctrl+Z"); may be empty.
    QString key{};
};

/// A button that acts when it is released inside. It has two sets of colours, for selected and not
/// selected.
class MyButton : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString image READ image NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(QString key READ key NOTIFY changed)
    Q_PROPERTY(bool isEnabled READ isEnabled NOTIFY changed)
    Q_PROPERTY(bool isMySelected READ isMySelected NOTIFY changed)
    Q_PROPERTY(QColor markColor MEMBER markColor CONSTANT)
    Q_PROPERTY(QColor fill READ fill NOTIFY changed)
    Q_PROPERTY(QColor textColor READ textColor NOTIFY changed)
    Q_PROPERTY(qreal width READ width CONSTANT)
    Q_PROPERTY(qreal height READ height CONSTANT)
    Q_PROPERTY(qreal cornerRadius READ cornerRadius CONSTANT)

public:
    MyButton(ButtonFace shown, std::function<void()> targetFunc, QObject* parent = nullptr);

    // Appearance: set these once after construction, except where there is a setter.
    QColor selectedColor = Qt::transparent;
    QColor unselectedColor = Qt::transparent;
    QColor normalTextColor = kTextColor;
    QColor highlightTextColor = kTextColor;
    /// Of a line below the title that marks the buttons of a group; transparent: none.
    QColor markColor = Qt::transparent;
    QString selectedImage; ///< replaces the image while selected; empty: the same image
    /// Device-independent pixels. A width of 0 means the width of the content.
    QSizeF size{40, 36};
    qreal radius = 6;

    std::function<void()> target; ///< called on a release inside; may be empty

    [[nodiscard]] QString image() const;

    [[nodiscard]] QString title() const { return face.title; }

    [[nodiscard]] QString name() const { return face.name.isEmpty() ? face.title : face.name; }

    /// As on the user's keyboard.
    [[nodiscard]] QString key() const;

    [[nodiscard]] bool isEnabled() const { return enabled; }

    [[nodiscard]] bool isMySelected() const { return selected; }

    [[nodiscard]] QColor fill() const { return selected ? selectedColor : unselectedColor; }

    [[nodiscard]] QColor textColor() const {
        return selected ? highlightTextColor : normalTextColor;
    }

    [[nodiscard]] qreal width() const { return size.width(); }

    [[nodiscard]] qreal height() const { return size.height(); }

    [[nodiscard]] qreal cornerRadius() const { return radius; }

    void setFace(ButtonFace shown);
    void setEnabled(bool isUsable);
    void setMySelected(bool isOn);

    /// A finger, mouse button or key was released on it. Does nothing while it is disabled.
    Q_INVOKABLE void click();

Q_SIGNALS:
    void changed();

protected:
    /// Called before the target.
    virtual void didTouch() {}

    ButtonFace face;

private:
    bool enabled = true;
    bool selected = false;
};

/// A button whose fill contains a picture and a text.
class MyLabelButton : public zelvo::ui::MyButton {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString myImageView READ image NOTIFY changed)

public:
    using MyButton::MyButton;
};

/// Makes the list type known to QML's tools.
struct MyButtonList {
    Q_GADGET
    QML_ANONYMOUS
    QML_FOREIGN(QList<zelvo::ui::MyButton*>)
    QML_SEQUENTIAL_CONTAINER(zelvo::ui::MyButton*)
};

} // namespace zelvo::ui
