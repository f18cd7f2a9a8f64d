// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickFramebufferObject>

namespace zelvo::ui {

class Stage;

/// Shows a Stage in a window and takes the fingers on it. Drawn in the window's own context, on
/// the thread that the window draws with, while the main thread waits for it.
class StageItem : public QQuickFramebufferObject {
    Q_OBJECT
    Q_PROPERTY(QObject* stage READ stageObject WRITE setStage NOTIFY stageChanged)

public:
    explicit StageItem(QQuickItem* parent = nullptr);
    ~StageItem() override;

    [[nodiscard]] Stage* stage() const { return stage_; }

    [[nodiscard]] QObject* stageObject() const;
    void setStage(QObject* stage);

    [[nodiscard]] Renderer* createRenderer() const override;

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

private:
    Stage* stage_ = nullptr;
};

/// Makes StageItem known to `import Zelvo`.
void installStageItem();

} // namespace zelvo::ui
