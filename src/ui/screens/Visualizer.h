// SPDX-License-Identifier: MIT
#pragma once

#include "ui/screens/TouchEvents.h"
#include "ui/screens/TouchView.h"

#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

class QEvent;

namespace zelvo::ui {

/// Shows each finger on the screen, and the mouse while its button is down, for demonstrations and
/// recordings of the program. It watches a window's events before the window sees them and keeps
/// none of them back.
class Visualizer final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(bool enabled READ isEnabled NOTIFY enabledChanged)
    Q_PROPERTY(QList<zelvo::ui::TouchView*> touchViews READ views NOTIFY touchViewsChanged)

public:
    explicit Visualizer(foundation::RunLoop& loop);
    ~Visualizer() override;

    /// To be told of all events of the window; once a window.
    void watch(QObject* window) { window->installEventFilter(this); }

    void start(const TouchVisualizerConfiguration& configuration);
    /// What shows goes.
    void stop();
    /// Starts with the configuration of the last start, or stops.
    Q_INVOKABLE void toggle();

    void handleEvent(const std::vector<Touch>& touches);

    [[nodiscard]] bool isEnabled() const { return enabled; }

    /// The views made so far, those that are free included.
    [[nodiscard]] QList<TouchView*> views() const;

    std::optional<TouchVisualizerConfiguration> config;
    std::vector<std::unique_ptr<TouchView>> touchViews;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void enabledChanged();
    void touchViewsChanged();

private:
    void endAll();
    void handle(const Touch& touch);
    [[nodiscard]] TouchView* viewOf(int touch) const;
    [[nodiscard]] TouchView& freeView();
    void log(const std::vector<Touch>& touches);

    foundation::RunLoop& runLoop;
    bool enabled = false;
    std::string previousLog;
};

} // namespace zelvo::ui
