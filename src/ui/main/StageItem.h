// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickFramebufferObject>
#include <QtQml/qqmlregistration.h>

#include <cstdint>
#include <memory>
#include <optional>

namespace zelvo::render {
class SCNView;
}

namespace zelvo::ui {

class Stage;

/// Shows a Stage in a window and passes gestures to it. Draws in the window's OpenGL context and on
/// its drawing thread, while the main thread waits.
class StageItem : public QQuickFramebufferObject {
    Q_OBJECT
    Q_MOC_INCLUDE("ui/main/Stage.h")
    QML_ELEMENT
    Q_PROPERTY(zelvo::ui::Stage* stage READ stage WRITE setStage NOTIFY stageChanged)

public:
    explicit StageItem(QQuickItem* parent = nullptr);
    ~StageItem() override;

    [[nodiscard]] Stage* stage() const { return stage_; }

    void setStage(Stage* stage);

    [[nodiscard]] Renderer* createRenderer() const override;

    /// The view that draws the stage. Both threads use it, but never at the same time: OpenGL
    /// commands are given only in `synchronize`.
    void setDrawnBy(const std::shared_ptr<render::SCNView>& view) { drawnBy = view; }

Q_SIGNALS:
    void stageChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    bool event(QEvent* event) override;
    void touchEvent(QTouchEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;
    void touchUngrabEvent() override;
    void wheelEvent(QWheelEvent* event) override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;

private:
    [[nodiscard]] std::optional<std::uint64_t> pictureKey() const;

    Stage* stage_ = nullptr;
    std::weak_ptr<render::SCNView> drawnBy;
};

} // namespace zelvo::ui
