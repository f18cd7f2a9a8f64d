// SPDX-License-Identifier: MIT
#include "ui/audio/WaveformItem.h"

#include <QQuickWindow>
#include <QSGFlatColorMaterial>
#include <QSGGeometryNode>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>

namespace zelvo::ui {

namespace {

constexpr int kCorners = 6; ///< of the two triangles of a rectangle

std::unique_ptr<QSGGeometryNode> makeNode() {
    auto node = std::make_unique<QSGGeometryNode>();
    auto geometry = std::make_unique<QSGGeometry>(QSGGeometry::defaultAttributes_Point2D(), 0);
    geometry->setDrawingMode(QSGGeometry::DrawTriangles);
    node->setGeometry(geometry.release());
    node->setMaterial(std::make_unique<QSGFlatColorMaterial>().release());
    node->setFlags(QSGNode::OwnsGeometry | QSGNode::OwnsMaterial);
    return node;
}

QSGGeometry::Point2D* addRectangle(QSGGeometry::Point2D* corner, const QRectF& area) {
    const std::array<QPointF, kCorners> places{
        area.topLeft(),
        area.topRight(),
        area.bottomLeft(),
        area.bottomLeft(),
        area.topRight(),
        area.bottomRight()};
    for (const QPointF& place : places)
        (corner++)->set(static_cast<float>(place.x()), static_cast<float>(place.y()));
    return corner;
}

} // namespace

WaveformItem::WaveformItem(QQuickItem* parent)
    : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

template <class Value> void WaveformItem::set(Value& member, const Value& value) {
    if (member == value)
        return;
    member = value;
    update();
    Q_EMIT changed();
}

void WaveformItem::setWaveform(SongWaveform* waveform) {
    if (waveform == shown)
        return;
    if (shown != nullptr)
        shown->disconnect(this);
    if (waveform != nullptr)
        connect(waveform, &SongWaveform::changed, this, &QQuickItem::update);
    set(shown, QPointer(waveform));
}

void WaveformItem::setPointsPerSecond(double points) {
    set(pointsPerSecond_, points);
}

void WaveformItem::setSongTime(double seconds) {
    set(songTime_, seconds);
}

void WaveformItem::setDuration(double seconds) {
    set(duration_, seconds);
}

void WaveformItem::setColor(const QColor& color) {
    set(color_, color);
}

void WaveformItem::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange)
        followAncestors();
    else if (change == ItemDevicePixelRatioHasChanged)
        update();
}

/// What is visible changes when an ancestor is scrolled or resized.
void WaveformItem::followAncestors() {
    for (const auto& connection : std::exchange(followed, {}))
        disconnect(connection);
    for (QQuickItem* item = this; item != nullptr; item = item->parentItem()) {
        for (const auto signal : {&QQuickItem::xChanged, &QQuickItem::widthChanged})
            followed.push_back(connect(item, signal, this, &QQuickItem::update));
    }
}

QRectF WaveformItem::visiblePart() const {
    QRectF visible = boundingRect();
    for (const QQuickItem* item = parentItem(); item != nullptr; item = item->parentItem()) {
        const bool isRoot = item->parentItem() == nullptr;
        if (isRoot || item->clip() || item->flags().testFlag(ItemIsViewport))
            visible &= mapRectFromItem(item, item->boundingRect());
    }
    return visible;
}

/// The values are spread over the whole song, although what is left at its end has no value.
double WaveformItem::pointsPerValue() const {
    const double rate = shown->valuesASecond();
    if (rate <= 0.0)
        return 0.0;
    const double all = shown->isLoading() ? std::floor(duration_ * rate)
                                          : static_cast<double>(shown->values().size());
    return pointsPerSecond_ * (duration_ > 0.0 && all > 0.0 ? duration_ / all : 1.0 / rate);
}

std::vector<WaveformBar> WaveformItem::bars(const QRectF& visible) const {
    return barsOf(
        shown->values(),
        {.songStart = -songTime_ * pointsPerSecond_,
         .pointsPerValue = pointsPerValue(),
         .height = height(),
         .left = visible.left(),
         .right = visible.right(),
         .pixelsPerPoint = window()->effectiveDevicePixelRatio()});
}

QSGNode* WaveformItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData* /*data*/) {
    const QRectF visible = visiblePart();
    if (shown == nullptr || visible.isEmpty()) {
        delete old; // NOLINT(cppcoreguidelines-owning-memory): the scene graph hands it over
        return nullptr;
    }
    auto* node = old != nullptr ? static_cast<QSGGeometryNode*>(old) : makeNode().release();
    const auto drawn = bars(visible);
    auto* geometry = node->geometry();
    geometry->allocate(kCorners * static_cast<int>(drawn.size() + 1));
    auto* corner = geometry->vertexDataAsPoint2D();
    const double middle = height() / 2;
    const double pixel = 1 / window()->effectiveDevicePixelRatio();
    const double line = std::max(std::round(1 / pixel), 1.0) * pixel;
    const double songStart = -songTime_ * pointsPerSecond_;
    const QRectF song(songStart, middle - line / 2, duration_ * pointsPerSecond_, line);
    corner = addRectangle(corner, song & visible);
    for (const WaveformBar& bar : drawn)
        corner = addRectangle(corner, {bar.x, middle - bar.reach, bar.width, 2 * bar.reach});
    static_cast<QSGFlatColorMaterial*>(node->material())->setColor(color_);
    node->markDirty(QSGNode::DirtyGeometry | QSGNode::DirtyMaterial);
    return node;
}

} // namespace zelvo::ui
