// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Color.h"
#include "ui/controls/MyButton.h"

#include <QColor>
#include <QImage>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QSize>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace zelvo::ui {

/// Takes the colour of a pixel of the stage. The view gives it a picture of the stage, and tells it
/// where the pointer is.
class ColorPipette final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(zelvo::ui::MyLabelButton* button READ buttonObject CONSTANT)
    Q_PROPERTY(bool isOn READ isOn WRITE setOn NOTIFY onChanged)
    Q_PROPERTY(bool hasPicture READ hasPicture NOTIFY changed)
    Q_PROPERTY(QSize pictureSize READ pictureSize NOTIFY changed)
    Q_PROPERTY(QPoint pixel READ pixel NOTIFY changed)
    Q_PROPERTY(QColor color READ color NOTIFY changed)

public:
    /// `told`: see didTakeColor.
    explicit ColorPipette(std::function<void(const image::Color&)> told, QObject* parent = nullptr);

    MyLabelButton button; ///< turns it on and off

    /// Called when the user takes a colour; may be empty.
    std::function<void(const image::Color&)> didTakeColor;

    [[nodiscard]] bool isOn() const { return isOn_; }

    void setOn(bool isWanted);

    /// The stage as it is shown now, in the size of the display's pixels.
    Q_INVOKABLE void look(const QImage& stage);
    /// `place`: in shares of the stage's width and height.
    Q_INVOKABLE void moveTo(QPointF place);
    Q_INVOKABLE void moveBy(int right, int down); ///< pixels
    /// Takes the pixel's colour and ends.
    Q_INVOKABLE void take();

    [[nodiscard]] bool hasPicture() const { return !picture.isNull(); }

    [[nodiscard]] QSize pictureSize() const { return picture.size(); }

    /// In the picture; always inside.
    [[nodiscard]] QPoint pixel() const;

    /// Of the pixel; black while there is no picture.
    [[nodiscard]] QColor color() const;

    [[nodiscard]] MyLabelButton* buttonObject() { return &button; }

Q_SIGNALS:
    void onChanged();
    void changed();

private:
    QImage picture;
    QPointF place_{0.5, 0.5};
    bool isOn_ = false;
};

} // namespace zelvo::ui
