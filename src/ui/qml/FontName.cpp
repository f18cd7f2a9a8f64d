// SPDX-License-Identifier: MIT
#include "ui/qml/FontName.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>

namespace zelvo::ui {

FontName::FontName(QQuickItem* parent)
    : QQuickItem(parent) {
    setFlag(ItemHasContents);
    connect(this, &FontName::changed, this, &QQuickItem::polish);
}

void FontName::setPictures(FontPictures* given) {
    pictures = given;
    Q_EMIT changed();
}

qreal FontName::pixelRatio() const {
    return window() != nullptr ? window()->effectiveDevicePixelRatio() : 1;
}

void FontName::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    polish();
}

void FontName::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        polish();
}

void FontName::updatePolish() {
    const qreal ratio = pixelRatio();
    const auto pixels = [ratio](qreal length) {
        return static_cast<int>(std::floor(length * ratio));
    };
    const FontSample wanted{fontFile, text, pixels(size), pixels(width()), pixels(height())};
    if (wanted == shown)
        return;
    shown = wanted;
    show({});
    ask();
}

void FontName::ask() {
    disconnect(waiting);
    if (pictures == nullptr || shown.font.path.isEmpty() || shown.width <= 2 || shown.height <= 2)
        return;
    if (const QImage* const found = pictures->find(shown))
        show(*found);
    else
        waiting = connect(pictures, &FontPictures::drawn, this, &FontName::ask);
}

void FontName::show(const QImage& made) {
    if (made.isNull() && picture.isNull())
        return;
    picture = made;
    isNew = true;
    update();
    Q_EMIT isDrawnChanged();
}

QSGNode* FontName::updatePaintNode(QSGNode* former, UpdatePaintNodeData* /*data*/) {
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
    // On whole pixels, so that the letters stay sharp.
    const qreal ratio = pixelRatio();
    const QSizeF extent = QSizeF(picture.size()) / ratio;
    const auto onPixel = [ratio](qreal place) { return std::round(place * ratio) / ratio; };
    const qreal left = isCentred ? onPixel((width() - extent.width()) / 2) : 0;
    node->setRect({{left, onPixel((height() - extent.height()) / 2)}, extent});
    node->setSourceRect(QRectF(QPointF(), picture.size()));
    return node;
}

} // namespace zelvo::ui
