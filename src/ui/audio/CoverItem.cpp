// SPDX-License-Identifier: MIT
#include "ui/audio/CoverItem.h"

#include <QQuickWindow>
#include <QSGImageNode>

namespace zelvo::ui {

CoverItem::CoverItem(QQuickItem* parent)
    : QQuickItem(parent) {
    setFlag(ItemHasContents);
    connect(this, &CoverItem::changed, this, &QQuickItem::polish);
}

void CoverItem::setPictures(CoverPictures* given) {
    pictures = given;
    Q_EMIT changed();
}

void CoverItem::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    polish();
}

void CoverItem::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        polish();
}

void CoverItem::updatePolish() {
    const qreal ratio = window() != nullptr ? window()->effectiveDevicePixelRatio() : 1;
    const int pixels = qRound(width() * ratio);
    if (cover == shownCover && pixels == shownPixels)
        return;
    shownCover = cover;
    shownPixels = pixels;
    show({});
    ask();
}

void CoverItem::ask() {
    disconnect(waiting);
    if (pictures == nullptr || shownCover.isEmpty() || shownPixels <= 0)
        return;
    if (const QImage* const found = pictures->find(shownCover, shownPixels))
        show(*found);
    else
        waiting = connect(pictures, &CoverPictures::arrived, this, &CoverItem::ask);
}

void CoverItem::show(const QImage& found) {
    if (found.isNull() && picture.isNull())
        return;
    picture = found;
    isNew = true;
    update();
    Q_EMIT isDrawnChanged();
}

QSGNode* CoverItem::updatePaintNode(QSGNode* former, UpdatePaintNodeData* /*data*/) {
    auto* node = static_cast<QSGImageNode*>(former);
    if (picture.isNull()) {
        delete node;
        return nullptr;
    }
    if (node == nullptr) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        isNew = true;
    }
    if (isNew) {
        node->setTexture(
            window()->createTextureFromImage(picture, QQuickWindow::TextureCanUseAtlas));
        isNew = false;
    }
    node->setRect(boundingRect());
    node->setSourceRect(QRectF(QPointF(), picture.size()));
    return node;
}

} // namespace zelvo::ui
