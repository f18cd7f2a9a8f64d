// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/FontPictures.h"

#include <QImage>
#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// A text in a font that is read from its file. The picture comes a little later than the item; it
/// fits into the item and is centred in its height.
class FontName : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        zelvo::ui::FontPictures* pictures READ picturesObject WRITE setPictures NOTIFY changed)
    Q_PROPERTY(zelvo::ui::FontFile fontFile MEMBER fontFile NOTIFY changed)
    Q_PROPERTY(QString text MEMBER text NOTIFY changed)
    Q_PROPERTY(qreal size MEMBER size NOTIFY changed)
    Q_PROPERTY(bool isCentred MEMBER isCentred NOTIFY changed)
    Q_PROPERTY(bool isDrawn READ isDrawn NOTIFY isDrawnChanged)

public:
    explicit FontName(QQuickItem* parent = nullptr);

    FontFile fontFile;
    QString text;
    qreal size = 19;        ///< em, device-independent pixels
    bool isCentred = false; ///< in the width; otherwise on the left

    [[nodiscard]] FontPictures* picturesObject() const { return pictures; }

    void setPictures(FontPictures* given);

    /// False until the picture is there, and if the font cannot show the text.
    [[nodiscard]] bool isDrawn() const { return !picture.isNull(); }

Q_SIGNALS:
    void changed();
    void isDrawnChanged();

protected:
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void updatePolish() override;
    QSGNode* updatePaintNode(QSGNode* former, UpdatePaintNodeData* data) override;

private:
    void ask();
    void show(const QImage& made);
    [[nodiscard]] qreal pixelRatio() const;

    QPointer<FontPictures> pictures; ///< null: nothing is drawn
    QMetaObject::Connection waiting;
    FontSample shown;
    QImage picture;
    bool isNew = false; ///< the picture is not yet in the node
};

} // namespace zelvo::ui
