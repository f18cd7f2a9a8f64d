// SPDX-License-Identifier: MIT
#pragma once

#include "ui/audio/CoverPictures.h"

#include <QImage>
#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// The cover of an album or a song, a square as wide as the item. It comes a little later than the item.
class CoverItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        zelvo::ui::CoverPictures* pictures READ picturesObject WRITE setPictures NOTIFY changed)
    Q_PROPERTY(QString cover MEMBER cover NOTIFY changed)
    Q_PROPERTY(bool isDrawn READ isDrawn NOTIFY isDrawnChanged)

public:
    explicit CoverItem(QQuickItem* parent = nullptr);

    QString cover; ///< coverOfAlbum, coverOfSong; empty: none

    [[nodiscard]] CoverPictures* picturesObject() const { return pictures; }

    void setPictures(CoverPictures* given);

    /// False until the picture is there, and if there is none.
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
    void show(const QImage& found);

    QPointer<CoverPictures> pictures; ///< null: nothing is drawn
    QMetaObject::Connection waiting;
    QString shownCover;
    int shownPixels = 0;
    QImage picture;
    bool isNew = false; ///< the picture is not yet in the node
};

} // namespace zelvo::ui
