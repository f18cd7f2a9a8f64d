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

/// Shows all fingers on the screen, and the mouse while its button is pressed, for demonstrations
/// and recordings. It sees a window's events first and passes all of them on.
class Visualizer final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(bool enabled READ isEnabled NOTIFY enabledChanged)
    Q_PROPERTY(QList<zelvo::ui::TouchView*> touchViews READ views NOTIFY touchViewsChanged)

public:
    explicit Visualizer(foundation::RunLoop& loop);
    ~Visualizer() override;

    /// Watches all events of the window. Call it once for each window.
    void watch(QObject* window) { window->installEventFilter(this); }

    void start(const TouchVisualizerConfiguration& configuration);
    /// Removes everything it shows.
    void stop();
    /// Starts with the last configuration, or stops.
    Q_INVOKABLE void toggle();

    void handleEvent(const std::vector<Touch>& touches);

    [[nodiscard]] bool isEnabled() const { return enabled; }

    /// All views made so far, including free ones.
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
