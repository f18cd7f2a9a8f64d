// SPDX-License-Identifier: MIT
#pragma once

#include "ui/imports/SceneView.h"

#include <QPointer>
#include <QQuickFramebufferObject>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// Shows a SceneView in a window.
class SceneViewItem : public QQuickFramebufferObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(zelvo::ui::SceneView* controller READ controller WRITE setController NOTIFY
                   controllerChanged)

public:
    explicit SceneViewItem(QQuickItem* parent = nullptr);
    ~SceneViewItem() override;

    [[nodiscard]] SceneView* controller() const { return shown; }

    void setController(SceneView* view);

    [[nodiscard]] Renderer* createRenderer() const override;

Q_SIGNALS:
    void controllerChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    QPointer<SceneView> shown; ///< may be destroyed first
};

} // namespace zelvo::ui
